// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs the cases of a LISP file in a world and lets GoogleTest hear of each that fails.
#pragma once

#include "lisp/world.h"
#include "lsp_cases.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

/// The LISP files of a folder, by name.
inline std::vector<std::filesystem::path> lspFiles(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".lsp") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

inline void runLspCase(orvald::lisp::World& world, const LspCase& one, const std::string& file)
{
    using namespace orvald::lisp;
    const Outcome outcome = world.evalText(toUtf16(one.text), file);
    const std::string message = outcome.ok() ? "" : toUtf8(outcome.error->message);
    if (one.expects == LspCase::Expects::error) {
        EXPECT_FALSE(outcome.ok()) << "value " << toUtf8(world.prin1(outcome.value));
        EXPECT_TRUE(message.ends_with(one.expected)) << "message " << message;
        return;
    }
    EXPECT_TRUE(outcome.ok()) << message;
    if (one.expects == LspCase::Expects::value) {
        EXPECT_EQ(toUtf8(world.prin1(outcome.value)), one.expected);
    }
}

inline void runLspFile(orvald::lisp::World& world, const std::filesystem::path& file)
{
    std::ifstream stream(file);
    std::stringstream text;
    text << stream.rdbuf();
    for (const LspCase& one : parseLspCases(text.str())) {
        SCOPED_TRACE(file.filename().string() + ":" + std::to_string(one.line));
        runLspCase(world, one, file.string());
    }
}
