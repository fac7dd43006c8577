// SPDX-License-Identifier: LicenseRef-ORVALD
#include "prompt.h"

#include "document.h"
#include "host.h"
#include "typed_values.h"

#include <utility>

namespace orvald {

using lisp::Value;
using lisp::World;

void missingInput(World& world, std::u16string_view prompt)
{
    const std::u16string text(trimmed(prompt));
    Host::instance().input().noteMissing(text);
    world.raise(u"no input for: " + text);
}

std::u16string askLine(World& world, std::u16string_view prompt)
{
    Host& host = Host::instance();
    InputSource& input = host.input();
    // In a quiet run only a user at a terminal sees the prompt.
    const bool typed = input.showsItself();
    const bool shown = typed || !host.console().quiet();
    if (shown) host.console().prompt(prompt);
    const std::optional<std::string> answer = input.nextLine();
    if (shown && !typed) host.console().prompt(lisp::toUtf16(answer.value_or("")) + u"\n");
    if (answer) return lisp::toUtf16(*answer);
    if (Host::mustStop()) world.raise(lisp::LispError::Sort::stopped, u"stopped");
    if (host.takeInterrupt()) {
        world.raise(lisp::LispError::Sort::cancelled, u"Function cancelled");
    }
    missingInput(world, prompt);
}

Prompted readPrompted(lisp::Args args)
{
    Prompted result;
    for (int i = 0; i < args.size(); ++i) {
        if (args[i].isNil()) continue;
        if (args[i].isCons()) {
            const lisp::Args::Point point = args.point(i);
            result.base = drawing::Point{point.x, point.y, point.z};
        } else {
            args.string(i); // anything else is an error
            result.prompt = args[i];
        }
    }
    return result;
}

Value promptOf(lisp::Args args)
{
    if (!args.at(0).isNil()) args.string(0);
    return args.at(0);
}

void complain(std::u16string_view complaint)
{
    Host::instance().console().warning(lisp::toUtf8(complaint));
}

Question::Question(World& world, Value prompt, std::u16string_view ownPrompt, int honoured)
    : world_(world),
      rules_(std::exchange(Document::of(world).user().nextInput, {})),
      prompt_(prompt.isString() ? prompt.asString() : ownPrompt)
{
    rules_.bits &= honoured;
    if (trimmed(prompt_).empty()) prompt_ = ownPrompt;
}

Value Question::ask(const Reader& read)
{
    for (;;) {
        const std::u16string typed = askLine(world_, prompt_);
        const std::u16string_view text = trimmed(typed);
        if (text.empty()) {
            if (!has(InputRules::kNoEnter)) return Value::nil();
            complain(u"An answer is required.");
            continue;
        }
        if (const auto keyword = rules_.keywords.match(text)) return world_.makeString(*keyword);
        std::u16string complaint;
        if (const std::optional<Value> value = read(text, complaint)) return *value;
        if (has(InputRules::kAnyText)) return world_.makeString(text);
        complain(complaint);
    }
}

} // namespace orvald
