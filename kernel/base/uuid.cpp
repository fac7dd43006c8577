// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/uuid.h"

#include "kex/format.h"
#include "kexos/random.h"

#include <array>
#include <stdexcept>

CKexString kexStrUuidCreate()
{
    std::array<unsigned char, 16> bytes;
    if (!kexos::randomBytes(bytes.data(), bytes.size())) {
        throw std::runtime_error("no random bytes");
    }
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
    CKexString text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += KT('-');
        text += KEX::format(KT("{:02x}"), unsigned(bytes[i]));
    }
    return text;
}
