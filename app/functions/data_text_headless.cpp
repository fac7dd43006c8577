// SPDX-License-Identifier: LicenseRef-ORVALD
// Data files as text, for the command line of the headless host.
#include "hostapi/arxapp.h"
#include "hostapi/headless.h"
#include "kex/files.h"
#include "kexdata/text_form.h"

extern "C" ACRX_EXPORT bool hostDataToText(std::string_view bytes, std::string& text,
                                           std::string& problem)
{
    return KEX::dataToText(bytes, text, problem);
}

extern "C" ACRX_EXPORT bool hostDataFromText(std::string_view text, std::string_view file,
                                             std::string& problem)
{
    std::string bytes;
    if (!KEX::dataFromText(text, bytes, problem)) return false;
    problem.clear();
    return KEX::fileSave(CKexString::fromUtf8(file), bytes);
}
