// SPDX-License-Identifier: LicenseRef-ORVALD
// Saving leaves the old file or the new one, whole, whatever fails.
#include "dxf_support.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace orvald;
using namespace orvald::dxf;

namespace {

/// Lets the n-th call fail, in one of several ways.
class FailingCalls : public FileCalls
{
public:
    enum class How
    {
        error,
        shortWrite, // half of it, then the disk is full
        kill,       // the process ends at the call, half of it written
        killBehind  // the process ends when the call has succeeded
    };
    FailingCalls(int which, How how) : left_(which), how_(how) {}

    int create(const std::string& path, const std::string& model, int& file) override
    {
        return run(EACCES, [&] { return FileCalls::create(path, model, file); });
    }
    int write(int file, const char* bytes, std::size_t count) override
    {
        if (left_ == 0 && (how_ == How::shortWrite || how_ == How::kill))
            FileCalls::write(file, bytes, count / 2);
        return run(ENOSPC, [&] { return FileCalls::write(file, bytes, count); });
    }
    int flush(int file) override
    {
        return run(EIO, [&] { return FileCalls::flush(file); });
    }
    int close(int file) override
    {
        if (left_ == 0) FileCalls::close(file); // it is gone all the same
        return run(EIO, [&] { return FileCalls::close(file); });
    }
    int rename(const std::string& from, const std::string& to) override
    {
        return run(EIO, [&] { return FileCalls::rename(from, to); });
    }
    int flushFolder(const std::string& folder) override
    {
        return run(EIO, [&] { return FileCalls::flushFolder(folder); });
    }
    bool reached() const { return left_ < 0; }

private:
    template <class Call>
    int run(int error, Call call)
    {
        if (left_-- != 0) return call();
        if (how_ == How::killBehind) call();
        if (how_ == How::kill || how_ == How::killBehind) ::_exit(0);
        return error;
    }
    int left_;
    How how_;
};

std::unique_ptr<drawing::Drawing> bigDrawing(std::string_view layer)
{
    auto drawing = drawing::Drawing::createNew();
    for (int i = 0; i < 8000; ++i) { // several pieces of text
        drawing::Record line(drawing::Kind::line, drawing::Family::entity);
        line.tags.addText(100, "AcDbEntity");
        line.tags.addText(8, layer);
        line.tags.addText(100, "AcDbLine");
        line.tags.addPoint(10, {i * 0.1, 0.0, 0.0});
        line.tags.addPoint(11, {1.0 / (i + 1), 1.0, 0.0});
        drawing->appendChild(drawing->modelSpace(), drawing->add(std::move(line)));
    }
    drawing->needLayer(layer);
    return drawing;
}

} // namespace

TEST(Save, AFailureAtAnyCallLeavesAWholeFile)
{
    TemporaryFolder folder;
    const std::string target = folder.file("plan.dxf");
    const auto oldDrawing = bigDrawing("Alt"), newDrawing = bigDrawing("Neu");
    const std::string oldText = saveText(*oldDrawing), newTextWhole = saveText(*newDrawing);
    using enum FailingCalls::How;
    for (const auto how : {error, shortWrite, kill, killBehind}) {
        bool reached = true;
        for (int n = 0; reached; ++n) {
            writeFile(target, oldText);
            if (how == kill || how == killBehind) {
                const pid_t child = ::fork();
                if (child == 0) {
                    FailingCalls calls(n, how);
                    save(*newDrawing, target, calls);
                    ::_exit(calls.reached() ? 0 : 1);
                }
                int status = 0;
                ::waitpid(child, &status, 0);
                reached = WEXITSTATUS(status) == 0;
            } else {
                FailingCalls calls(n, how);
                const Saved saved = save(*newDrawing, target, calls);
                reached = calls.reached();
                EXPECT_EQ(saved.good, !reached) << n;
                EXPECT_EQ(saved.error.message().empty(), false);
                EXPECT_FALSE(std::filesystem::exists(temporaryName(target))) << n;
            }
            const std::string now = readFile(target);
            ASSERT_TRUE(now == oldText || now == newTextWhole) << n;
            // It loads, and what a killed writer left behind is never taken for it.
            EXPECT_NE(load(target).drawing, nullptr) << n;
            // That does not stop the next one either, and goes.
            const Saved next = save(*newDrawing, target);
            EXPECT_TRUE(next.good) << next.error.message();
            EXPECT_FALSE(std::filesystem::exists(temporaryName(target)));
            ASSERT_LT(n, 100);
        }
    }
}

TEST(Save, RefusesNumbersThatAreNotFinite)
{
    TemporaryFolder folder;
    const std::string target = folder.file("plan.dxf");
    writeFile(target, "old");
    for (const double bad :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        auto drawing = drawing::Drawing::createNew();
        drawing::Record point(drawing::Kind::point, drawing::Family::entity);
        point.tags.addText(8, "0");
        point.tags.addPoint(10, {0.0, bad, 0.0});
        const drawing::Index index = drawing->add(std::move(point));
        drawing->appendChild(drawing->modelSpace(), index);
        const Saved saved = save(*drawing, target);
        EXPECT_FALSE(saved.good);
        EXPECT_EQ(saved.error.handle, drawing->at(index).handle);
        EXPECT_EQ(readFile(target), "old");
    }
}

TEST(Save, KeepsLinksAndPermissionsAndSaysWhatIsWrong)
{
    TemporaryFolder folder;
    const auto drawing = drawing::Drawing::createNew();
    const std::string real = folder.file("real.dxf"), link = folder.file("link.dxf");
    writeFile(real, "old");
    std::filesystem::create_symlink("real.dxf", link);
    ::chmod(real.c_str(), 0640);
    EXPECT_TRUE(save(*drawing, link).good);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readFile(real), saveText(*drawing));
    struct stat status
    {
    };
    ::stat(real.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0640u);

    const Saved missing = save(*drawing, folder.file("no/such/plan.dxf"));
    EXPECT_FALSE(missing.good);
    EXPECT_NE(missing.error.message().find("plan.dxf: No such file"), std::string::npos)
        << missing.error.message();
    EXPECT_NE(load(folder.file("none.dxf")).error.message().find("No such file"),
              std::string::npos);
    EXPECT_EQ(load(folder.path()).drawing, nullptr);

    // Somebody else is writing the same file.
    FileCalls other;
    int file = -1;
    ASSERT_EQ(other.create(temporaryName(real), real, file), 0);
    EXPECT_FALSE(save(*drawing, real).good);
    other.close(file);
    EXPECT_TRUE(save(*drawing, real).good);
}
