// SPDX-License-Identifier: LicenseRef-ORVALD
// Any bytes as a DXF file: they are refused with a reason, or become a drawing that is written,
// read and written the same.
#include "drawing/contents.h"
#include "dxf/audit.h"
#include "fuzz_check.h"

#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace orvald;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    dxf::auditText(bytes);
    const dxf::Loaded loaded = dxf::loadText(bytes);
    if (loaded.drawing == nullptr) {
        fuzzCheck(!loaded.error.reason.empty(), "a refusal has a reason");
        return 0;
    }
    drawing::contentsOf(*loaded.drawing);
    const std::string once = dxf::saveText(*loaded.drawing);
    const dxf::Loaded again = dxf::loadText(once);
    fuzzCheck(again.drawing != nullptr, "what is written can be read");
    fuzzCheck(dxf::saveText(*again.drawing) == once, "what is read is written the same");
    return 0;
}
