// SPDX-License-Identifier: LicenseRef-ORVALD
// The calls in progress, told from a signal handler: nothing here takes memory or a lock. It runs
// when a function of the host or of a module does not come back, and then the frames stand still.
#include "evaluator.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

constexpr int kMostLines = 40;

class Text
{
public:
    Text(char* text, std::size_t room) : begin_(text), at_(text), end_(text + room) {}

    void put(std::string_view octets)
    {
        const auto count = std::min(octets.size(), static_cast<std::size_t>(end_ - at_));
        at_ = std::copy_n(octets.data(), count, at_);
    }
    void put(std::u16string_view units)
    {
        for (const char16_t unit : units) {
            const char octet = unit < 0x80 ? static_cast<char>(unit) : '?';
            put({&octet, 1});
        }
    }
    void put(int number)
    {
        char digits[12];
        char* first = std::end(digits);
        for (; number > 0 || first == std::end(digits); number /= 10) {
            *--first = static_cast<char>('0' + number % 10);
        }
        put({first, static_cast<std::size_t>(std::end(digits) - first)});
    }
    std::size_t size() const { return static_cast<std::size_t>(at_ - begin_); }

private:
    char* begin_;
    char* at_;
    char* end_;
};

} // namespace

std::size_t Evaluator::describeCalls(char* text, std::size_t room) const noexcept
{
    Text out(text, room);
    const FormNode* last = nullptr;
    int lines = 0, times = 0, left = 0;
    const auto endLine = [&] {
        if (times > 1) {
            out.put(" (again ");
            out.put(times - 1);
            out.put(" times)");
        }
        if (last != nullptr) out.put("\n");
    };
    const auto add = [&](const FormNode* call) {
        if (call == nullptr) return;
        if (last != nullptr && last->form == call->form) {
            ++times;
            return;
        }
        if (lines == kMostLines) {
            ++left;
            return;
        }
        endLine();
        ++lines;
        last = call;
        times = 1;
        const Cons* form = call->form;
        out.put("  in (");
        out.put(form->car.isSymbol() ? std::u16string_view(form->car.asSymbol()->name)
                                     : std::u16string_view(u"lambda"));
        out.put(form->cdr.isNil() ? ")" : " ...)");
        if (const Place* place = places_.find(form)) {
            if (place->file == 0) return; // text of no file
            out.put("   ");
            out.put(files_[static_cast<std::size_t>(place->file)]);
            out.put(":");
            out.put(place->line);
        }
    };
    add(currentCall);
    for (const Frame* frame = frameTop; frame != frames_.get(); --frame) add(frame[-1].call);
    endLine();
    if (left > 0) {
        out.put("  ... ");
        out.put(left);
        out.put(" more calls\n");
    }
    return out.size();
}

} // namespace orvald::lisp
