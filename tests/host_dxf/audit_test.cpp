// SPDX-License-Identifier: LicenseRef-ORVALD
// The audit finds each fault of a file by its kind, and nothing in good files.
#include "dxf_support.h"

#include "dxf/audit.h"

#include <set>

using namespace orvald;
using namespace orvald::dxf;

namespace {

/// Kinds of the errors in a report, each once.
std::set<std::string_view> errorKinds(const Audit& audit)
{
    std::set<std::string_view> kinds;
    for (const ProblemSum& sum : audit.kinds)
        if (sum.first.isError) kinds.insert(sum.first.kind);
    return kinds;
}

std::string joined(const std::set<std::string_view>& kinds)
{
    std::string out;
    for (const std::string_view kind : kinds) out += std::string(kind) + " ";
    return out;
}

std::string shellOutput(const std::string& command)
{
    std::string out;
    std::FILE* pipe = ::popen(command.c_str(), "r");
    char piece[4096];
    while (pipe != nullptr) {
        const std::size_t got = std::fread(piece, 1, sizeof piece, pipe);
        if (got == 0) break;
        out.append(piece, got);
    }
    if (pipe != nullptr) ::pclose(pipe);
    return out;
}

std::string tool(std::string_view name)
{
    return "/usr/bin/python3 '" + std::string(KEX_SOURCE_DIR) + "/tests/tools/" +
           std::string(name) + "' ";
}

} // namespace

TEST(Audit, EveryFaultOfADamagedFileIsFoundByItsKind)
{
    TemporaryFolder folder;
    std::istringstream made(
        shellOutput(tool("damage_dxf.py") + samplePath("R2013") + " " + folder.path()));
    std::string name, kind, paths;
    std::set<std::string> refused;
    std::size_t count = 0;
    while (made >> name >> kind) {
        const std::string path = folder.file(name + ".dxf");
        const std::set<std::string_view> found = errorKinds(audit(path));
        if (kind == "-") EXPECT_TRUE(found.empty()) << name << ": " << joined(found);
        else EXPECT_TRUE(found.contains(kind)) << name << ": " << kind << ", not " << joined(found);
        if (!found.empty()) refused.insert(path);
        paths += path + " ";
        ++count;
    }
    EXPECT_GE(count, 80u);
    // What another program's library complains about, we complain about.
    std::istringstream theirs(shellOutput(tool("dxf_audit.py") + paths + "2>/dev/null"));
    for (std::string line; std::getline(theirs, line);)
        EXPECT_TRUE(refused.contains(line.substr(0, line.find(": ")))) << line;
}

TEST(Audit, GoodFilesOfAllVersionsAndOfOurOwnHaveNoErrors)
{
    for (const std::string& version : sampleVersions()) {
        const Audit found = audit(samplePath(version));
        EXPECT_TRUE(found.good()) << version << ": " << joined(errorKinds(found));
    }
    const Audit own = auditText(newText());
    EXPECT_EQ(own.version, "AC1027");
    EXPECT_TRUE(own.kinds.empty()) << own.kinds.front().first.text;
}

TEST(Audit, ProblemsAreSummedByKindWithTheirFirstPlace)
{
    std::string text = newText();
    for (const char* handle : {"A1", "A2", "A3"})
        text =
            intoSection(text, "ENTITIES",
                        groups("0 POINT|5 " + std::string(handle) +
                               "|330 1F|100 AcDbEntity|8 Neu|62 999|100 AcDbPoint|10 0.0|20 0.0"));
    std::vector<Problem> told;
    const Audit found = auditText(text, [&](const Problem& problem) { told.push_back(problem); });
    EXPECT_EQ(found.errors + found.warnings, told.size());
    ASSERT_EQ(found.kinds.size(), 3u); // colour, seed, layer
    const ProblemSum& colour = found.kinds[0];
    EXPECT_EQ(colour.first.kind, "colour");
    EXPECT_EQ(colour.count, 3u);
    EXPECT_EQ(colour.first.handle, 0xA1u);
    const auto before = text.substr(0, text.find("  0\nPOINT\n"));
    EXPECT_EQ(colour.first.line, 1u + std::count(before.begin(), before.end(), '\n'));
    EXPECT_EQ(colour.first.text, "POINT A1: colour 999");
}

TEST(Audit, OldFilesNeedNeitherHandlesNorOwners)
{
    const std::string good =
        groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 "
               "LAYER|70 1|0 LAYER|2 0|70 0|62 7|6 CONTINUOUS|0 ENDTAB|0 ENDSEC|0 SECTION|2 "
               "BLOCKS|0 BLOCK|8 0|2 B|70 0|10 0.0|20 0.0|0 POINT|8 0|10 0.0|20 0.0|0 ENDBLK|0 "
               "ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|8 0|2 b|10 0.0|20 0.0|0 ENDSEC|0 EOF");
    const Audit found = auditText(good);
    EXPECT_TRUE(found.kinds.empty()) << found.kinds.front().first.text;
    EXPECT_EQ(joined(errorKinds(auditText(replaced(good, groups("2 b"), groups("2 c"))))),
              "undefined-name ");
    EXPECT_EQ(joined(errorKinds(auditText(replaced(good, groups("0 POINT"), groups("0 VERTEX"))))),
              "sequence ");
}
