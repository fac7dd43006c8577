// SPDX-License-Identifier: LicenseRef-ORVALD
// The LISP cases of the kernel's functions, in a session with the module loaded, once for each form
// in which a host may hand arguments over; and the examples of the documents.
#include "lsp_cases.h"
#include "session_support.h"

#include <algorithm>

namespace {

using kextest::Running;

void runCases(Running& running, const std::string& name, const std::string& text)
{
    for (const LspCase& one : parseLspCases(text)) {
        SCOPED_TRACE(name + ":" + std::to_string(one.line));
        const orvald::Evaluation result = running.session.eval(one.text);
        if (one.expects == LspCase::Expects::error) {
            EXPECT_FALSE(result.ok) << "value " << result.value;
            const bool said =
                result.error.ends_with(one.expected) || result.failure.ends_with(one.expected);
            EXPECT_TRUE(said) << "message " << result.error << ", failure " << result.failure;
            continue;
        }
        EXPECT_TRUE(result.ok) << result.error << " " << result.failure;
        if (one.expects == LspCase::Expects::value) {
            EXPECT_EQ(result.value, one.expected);
        }
    }
}

/// Every case file below tests/lisp that is about the kernel's own functions.
std::vector<std::filesystem::path> caseFiles()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(KEX_SOURCE_DIR "/tests/lisp")) {
        const std::string folder = entry.path().parent_path().filename().string();
        const bool host = folder == "core" || folder == "drawing" ||
                          folder == "programs"; // run with the host alone
        if (entry.path().extension() == ".lsp" && !host) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

struct Form
{
    const char* name;
    bool dotInMiddle, longIntegers;
};

class LispCases : public testing::TestWithParam<Form>
{
};

TEST_P(LispCases, HoldInThisFormOfArguments)
{
    orvald::SessionOptions options;
    options.dotInMiddle = GetParam().dotInMiddle;
    options.longIntegers = GetParam().longIntegers;
    options.modules = {"probe.arx"};
    const std::vector<std::filesystem::path> files = caseFiles();
    ASSERT_FALSE(files.empty());
    testing::internal::CaptureStderr(); // argument errors are told there as well
    for (const std::filesystem::path& file : files) {
        Running running(options);
        runCases(running, file.filename().string(), kextest::readFile(file.string()));
    }
    testing::internal::GetCapturedStderr();
}

INSTANTIATE_TEST_SUITE_P(Forms, LispCases,
                         testing::Values(Form{"usual", false, false},
                                         Form{"dotInMiddle", true, false},
                                         Form{"longIntegers", false, true}),
                         [](const auto& one) { return one.param.name; });

TEST(Documents, ExamplesRunAsPrinted)
{
    for (const std::string name : {"README.md", "docs/data.md"}) {
        const std::string text = kextest::readFile(KEX_SOURCE_DIR "/" + name);
        const std::string begin = "```lisp\n";
        std::size_t blocks = 0;
        Running running;
        for (std::size_t at = text.find(begin); at != std::string::npos;
             at = text.find(begin, at + 1)) {
            const std::size_t start = at + begin.size();
            const std::size_t end = text.find("```", start);
            ASSERT_NE(end, std::string::npos);
            runCases(running, name, text.substr(start, end - start));
            ++blocks;
        }
        EXPECT_GT(blocks, 0u) << name;
    }
}

} // namespace
