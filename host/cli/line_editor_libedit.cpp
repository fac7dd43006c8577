// SPDX-License-Identifier: LicenseRef-ORVALD
// Line editing by libedit. It takes the encoding of what is typed from the locale, so the calling
// thread has one of UTF-8 while libedit runs, whatever the environment says; nobody else sees it.
#include "line_editor.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <histedit.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace orvald::cli {
namespace {

constexpr int kMostEntries = 2000;
constexpr int kMostListed = 200; // completions

class Utf8Scope
{
public:
    explicit Utf8Scope(locale_t locale) : before_(uselocale(locale)) {}
    ~Utf8Scope() { uselocale(before_); }
    Utf8Scope(const Utf8Scope&) = delete;
    Utf8Scope& operator=(const Utf8Scope&) = delete;

private:
    locale_t before_;
};

/// Ctrl-C, Ctrl-D and Ctrl-Z are keys like others. libedit sees to that when it reads, which is
/// after it has shown the prompt; here it begins before, so that no key falls in between.
class KeysScope
{
public:
    KeysScope() : known_(tcgetattr(STDIN_FILENO, &before_) == 0)
    {
        if (!known_) return;
        termios keys = before_;
        keys.c_lflag &= ~static_cast<tcflag_t>(ISIG | ICANON | ECHO);
        keys.c_cc[VMIN] = 1;
        keys.c_cc[VTIME] = 0;
        tcsetattr(STDIN_FILENO, TCSADRAIN, &keys);
    }
    ~KeysScope()
    {
        if (known_) tcsetattr(STDIN_FILENO, TCSADRAIN, &before_);
    }
    KeysScope(const KeysScope&) = delete;
    KeysScope& operator=(const KeysScope&) = delete;

private:
    termios before_ = {};
    bool known_;
};

/// A byte in the middle of a character.
bool goesOn(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Characters of a text, which a terminal shows in as many columns.
int width(std::string_view text)
{
    return static_cast<int>(std::ranges::count_if(text, std::not_fn(goesOn)));
}

std::string commonBeginning(const std::vector<std::string>& words)
{
    const std::string& first = words.front();
    auto end = first.end();
    for (const std::string& word : words) {
        end = std::ranges::mismatch(first.begin(), end, word.begin(), word.end()).in1;
    }
    while (end != first.end() && goesOn(*end)) --end;
    return {first.begin(), end};
}

class EditLineEditor final : public LineEditor
{
public:
    explicit EditLineEditor(Completer completer);
    ~EditLineEditor() override;
    Got read(const std::string& prompt, std::string& line) override;
    void remember(const std::string& entry) override;

private:
    static EditLineEditor& of(EditLine* edit);
    static char* promptOf(EditLine* edit) { return of(edit).prompt_.data(); }
    static unsigned char onTab(EditLine* edit, wint_t) { return of(edit).completeHere(); }
    static unsigned char onInterrupt(EditLine* edit, wint_t);
    static unsigned char onSuspend(EditLine*, wint_t);
    unsigned char completeHere();
    void list(const std::vector<std::string>& words);
    void bindKeys();

    Completer completer_;
    locale_t locale_;
    std::FILE* out_;
    EditLine* edit_;
    History* history_;
    std::string prompt_;
    bool dropped_ = false;
};

EditLineEditor::EditLineEditor(Completer completer)
    : completer_(std::move(completer)),
      locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)),
      // Like prompts, on stderr where that is a terminal; stdout is for what programs print.
      out_(fdopen(dup(isatty(STDERR_FILENO) == 1 ? STDERR_FILENO : STDOUT_FILENO), "w"))
{
    const Utf8Scope utf8(locale_);
    edit_ = el_init("orvald", stdin, out_, out_);
    history_ = history_init();
    HistEvent event;
    history(history_, &event, H_SETSIZE, kMostEntries);
    history(history_, &event, H_SETUNIQUE, 1);
    el_set(edit_, EL_CLIENTDATA, this);
    el_set(edit_, EL_PROMPT, &promptOf);
    el_set(edit_, EL_HIST, history, history_);
    el_set(edit_, EL_SIGNAL, 1); // stopped and continued, another size of the window
    bindKeys();
    el_source(edit_, nullptr); // the user's ~/.editrc
}

EditLineEditor::~EditLineEditor()
{
    const Utf8Scope utf8(locale_);
    history_end(history_);
    el_end(edit_);
    std::fclose(out_);
    if (locale_ != locale_t{}) freelocale(locale_);
}

void EditLineEditor::bindKeys()
{
    el_set(edit_, EL_EDITOR, "emacs");
    // In the wide form: the narrow one copies the names and never frees them.
    el_wset(edit_, EL_ADDFN, L"orvald-complete", L"complete the word", &onTab);
    el_wset(edit_, EL_ADDFN, L"orvald-drop", L"drop the line", &onInterrupt);
    el_wset(edit_, EL_ADDFN, L"orvald-suspend", L"stop the job", &onSuspend);
    constexpr const char* kKeys[][2] = {
        {"^I", "orvald-complete"},
        {"^C", "orvald-drop"},
        {"^Z", "orvald-suspend"},
        {"^R", "em-inc-search-prev"},
        {"\\e[A", "ed-search-prev-history"},
        {"\\eOA", "ed-search-prev-history"},
        {"\\e[B", "ed-search-next-history"},
        {"\\eOB", "ed-search-next-history"},
        {"\\e[3~", "ed-delete-next-char"},
        {"\\e[H", "ed-move-to-beg"},
        {"\\e[F", "ed-move-to-end"},
        {"\\e[1~", "ed-move-to-beg"},
        {"\\e[4~", "ed-move-to-end"},
        {"\\e[1;5C", "em-next-word"},
        {"\\e[1;5D", "ed-prev-word"},
    };
    for (const auto& [key, function] : kKeys) el_set(edit_, EL_BIND, key, function, nullptr);
    el_set(edit_, EL_SETTY, "-d", "-isig", nullptr);
}

EditLineEditor& EditLineEditor::of(EditLine* edit)
{
    void* self = nullptr;
    el_get(edit, EL_CLIENTDATA, &self);
    return *static_cast<EditLineEditor*>(self);
}

unsigned char EditLineEditor::onInterrupt(EditLine* edit, wint_t)
{
    of(edit).dropped_ = true;
    return CC_EOF;
}

unsigned char EditLineEditor::onSuspend(EditLine*, wint_t)
{
    kill(0, SIGTSTP); // libedit's action for it sees to the terminal
    return CC_REFRESH;
}

LineEditor::Got EditLineEditor::read(const std::string& prompt, std::string& line)
{
    const Utf8Scope utf8(locale_);
    const KeysScope keys;
    prompt_ = prompt;
    dropped_ = false;
    int count = 0;
    const char* typed = el_gets(edit_, &count);
    if (typed == nullptr || count <= 0) {
        std::fputs(dropped_ ? "^C\n" : "\n", out_);
        std::fflush(out_);
        return dropped_ ? Got::dropped : Got::end;
    }
    line.assign(typed, std::strlen(typed));
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    return Got::line;
}

void EditLineEditor::remember(const std::string& entry)
{
    const Utf8Scope utf8(locale_);
    HistEvent event;
    history(history_, &event, H_ENTER, entry.c_str());
}

unsigned char EditLineEditor::completeHere()
{
    const LineInfo* const info = el_line(edit_);
    const std::string before(info->buffer, info->cursor);
    int waiting = 0;
    ioctl(STDIN_FILENO, FIONREAD, &waiting);
    if (waiting > 0 || before.empty() || before.ends_with(' ')) {
        // In a text that is pasted, and where no word begins, it is a blank.
        return el_insertstr(edit_, "  ") == 0 ? CC_REFRESH : CC_ERROR;
    }
    const Completion found = completer_(before);
    if (found.words.empty()) return CC_ERROR;
    std::string more = commonBeginning(found.words).substr(found.typed);
    const bool only = found.words.size() == 1;
    if (only && !found.words.front().ends_with('/')) more += found.end;
    if (!more.empty()) return el_insertstr(edit_, more.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    if (only) return CC_ERROR;
    list(found.words);
    return CC_REDISPLAY;
}

/// In columns, downwards as a folder is listed.
void EditLineEditor::list(const std::vector<std::string>& words)
{
    const int count = std::min(static_cast<int>(words.size()), kMostListed);
    int widest = 0;
    for (int i = 0; i < count; ++i)
        widest = std::max(widest, width(words[static_cast<std::size_t>(i)]));
    winsize size = {};
    const bool known = ioctl(STDIN_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    const int columns = std::max(1, (known ? size.ws_col : 80) / (widest + 2));
    const int rows = (count + columns - 1) / columns;
    std::string out = "\n";
    for (int row = 0; row < rows; ++row) {
        for (int i = row; i < count; i += rows) {
            const std::string& word = words[static_cast<std::size_t>(i)];
            out += word;
            if (i + rows < count)
                out.append(static_cast<std::size_t>(widest + 2 - width(word)), ' ');
        }
        out += '\n';
    }
    if (const auto all = static_cast<int>(words.size()); all > count) {
        out += "and " + std::to_string(all - count) + " more\n";
    }
    std::fputs(out.c_str(), out_);
    std::fflush(out_);
}

} // namespace

std::unique_ptr<LineEditor> makeLineEditor(Completer completer)
{
    return std::make_unique<EditLineEditor>(std::move(completer));
}

} // namespace orvald::cli
