// SPDX-License-Identifier: LicenseRef-ORVALD
// What a running command has: its document and its input. A command is a coroutine that awaits one
// input after the other,
//     const Answer<Point> to = co_await command.point(u"Specify next point", u"Close Undo");
// and gets a value, one of the keywords, or Enter. What is none of these is refused: input of a
// program ends the command with an error, what the user typed is asked for again. Points are in the
// user's coordinates, lengths in drawing units, angles in radians.
#pragma once

#include "commands/task.h"
#include "commands/token.h"
#include "drawing/drawing.h"
#include "input_rules.h"
#include "osnap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvald {

class Document;

/// Thrown to end a command that cannot go on, with the words for the user.
struct CommandRefusal
{
    std::u16string why;
};

/// Thrown out of the input that a command waits for when it is cancelled.
struct CommandCancelled
{
};

/// A value, a keyword as it stands in the list, or neither: Enter.
template <class T>
struct Answer
{
    std::optional<T> value;
    std::u16string keyword;

    explicit operator bool() const { return value.has_value(); }
    const T& operator*() const { return *value; }
    const T* operator->() const { return &*value; }
    bool isEnter() const { return !value && keyword.empty(); }
    bool is(std::u16string_view word) const { return keyword == word; }
};

/// An entity, and where it was picked when that is known.
struct Picked
{
    drawing::Index entity = drawing::kNone;
    std::optional<drawing::Point> at;
};

class Command;

/// An input that a command waits for.
class Wait
{
public:
    Wait(Command& command, std::u16string_view prompt) : command_(command), prompt_(prompt) {}
    virtual ~Wait() = default;
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    virtual Taken take(const Token& token) = 0;
    /// What would have been right, for one that was refused: "a point".
    virtual std::u16string_view wanted() const = 0;
    /// For asking the user.
    virtual std::u16string_view prompt() const { return prompt_; }

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) noexcept;
    void goOn() { waiting_.resume(); }
    void cancel()
    {
        cancelled_ = true;
        waiting_.resume();
    }

protected:
    void checkCancelled() const
    {
        if (cancelled_) throw CommandCancelled{};
    }

    Command& command_;

private:
    std::u16string_view prompt_; // a literal
    bool cancelled_ = false;
    std::coroutine_handle<> waiting_;
};

/// A wait for an answer that may be a keyword.
template <class T>
class AnswerWait : public Wait
{
public:
    AnswerWait(Command& command, std::u16string_view prompt, std::u16string_view keywords)
        : Wait(command, prompt), keywords_(keywords)
    {
    }
    Taken take(const Token& token) final
    {
        if (token.isEnter()) return Taken::done;
        const bool typed = token.kind == Token::Kind::text || token.kind == Token::Kind::number;
        if (typed && !keywords_.empty()) {
            if (auto keyword = keywords_.match(token.text)) {
                answer_.keyword = std::move(*keyword);
                return Taken::done;
            }
        }
        return takeValue(token);
    }
    Answer<T> await_resume()
    {
        checkCancelled();
        return std::move(answer_);
    }

protected:
    virtual Taken takeValue(const Token& token) = 0;
    /// The value is the answer, when there is one.
    Taken take(std::optional<T> value)
    {
        if (!value) return Taken::refused;
        answer_.value = std::move(value);
        return Taken::done;
    }

private:
    Keywords keywords_;
    Answer<T> answer_;
};

struct PointWait final : AnswerWait<drawing::Point>
{
    using AnswerWait::AnswerWait;
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"a point"; }
};

/// A plain number.
struct NumberWait final : AnswerWait<double>
{
    using AnswerWait::AnswerWait;
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"a number"; }
};

/// A whole number of 16 bits.
struct IntegerWait final : AnswerWait<int>
{
    using AnswerWait::AnswerWait;
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"a whole number"; }
};

/// A number, or a point at that distance from the base, or two points.
class DistanceWait final : public AnswerWait<double>
{
public:
    DistanceWait(Command& command, std::u16string_view prompt, std::u16string_view keywords,
                 std::optional<drawing::Point> base)
        : AnswerWait(command, prompt, keywords), base_(base)
    {
    }
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"a distance"; }

private:
    std::optional<drawing::Point> base_;
};

/// An angle as typed, or the direction from the base to a point, or that of two points.
class AngleWait final : public AnswerWait<double>
{
public:
    /// `direction`: typed angles count from ANGBASE on, not by themselves.
    AngleWait(Command& command, std::u16string_view prompt, std::u16string_view keywords,
              std::optional<drawing::Point> base, bool direction)
        : AnswerWait(command, prompt, keywords), base_(base), direction_(direction)
    {
    }
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"an angle"; }

private:
    std::optional<drawing::Point> base_;
    bool direction_;
};

/// One entity, named or picked.
struct EntityWait final : AnswerWait<Picked>
{
    using AnswerWait::AnswerWait;
    Taken takeValue(const Token& token) override;
    std::u16string_view wanted() const override { return u"an object"; }
};

/// Keywords alone.
struct NoValue
{
};
struct KeywordWait final : AnswerWait<NoValue>
{
    using AnswerWait::AnswerWait;
    Taken takeValue(const Token&) override { return Taken::refused; }
    std::u16string_view wanted() const override { return u"an option"; }
};

/// Text as it is; numbers as they print; empty for Enter.
class TextWait final : public Wait
{
public:
    using Wait::Wait;
    Taken take(const Token& token) override;
    std::u16string_view wanted() const override { return u"a text"; }
    std::u16string await_resume()
    {
        checkCancelled();
        return std::move(text_);
    }

private:
    std::u16string text_;
};

/// Whatever comes, for a prompt with more than one kind of answer.
class TokenWait final : public Wait
{
public:
    using Wait::Wait;
    Taken take(const Token& token) override
    {
        token_ = token;
        return Taken::done;
    }
    std::u16string_view wanted() const override { return u"an answer"; }
    Token await_resume()
    {
        checkCancelled();
        return std::move(token_);
    }

private:
    Token token_;
};

class SelectionWait;

class Command
{
public:
    Command(Document& document, std::u16string_view name) : document_(document), name_(name) {}
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    Document& document() { return document_; }
    drawing::Drawing& drawing();
    /// Upper case, without prefixes.
    std::u16string_view name() const { return name_; }

    // -- input; prompts and keyword lists are literals
    PointWait point(std::u16string_view prompt, std::u16string_view keywords = {});
    NumberWait number(std::u16string_view prompt, std::u16string_view keywords = {});
    IntegerWait integer(std::u16string_view prompt, std::u16string_view keywords = {});
    DistanceWait distance(std::u16string_view prompt, std::u16string_view keywords = {},
                          std::optional<drawing::Point> base = {});
    /// An amount to turn by.
    AngleWait angle(std::u16string_view prompt, std::u16string_view keywords = {},
                    std::optional<drawing::Point> base = {});
    /// A direction in the plane of the user, from its X axis.
    AngleWait direction(std::u16string_view prompt, std::u16string_view keywords = {},
                        std::optional<drawing::Point> base = {});
    EntityWait entity(std::u16string_view prompt, std::u16string_view keywords = {});
    KeywordWait option(std::u16string_view prompt, std::u16string_view keywords);
    TextWait text(std::u16string_view prompt);
    TokenWait token(std::u16string_view prompt);
    /// Objects up to Enter; may be none. They become the previous selection.
    SelectionWait selection();
    /// The same, without those on locked layers, which cannot be changed.
    SelectionWait changeable();
    /// The same with one choice, which no Enter ends: one object, or one set.
    SelectionWait changeableOnce();

    /// Corners of the last crossing window of the last selection, in user coordinates; none without
    /// one.
    const std::vector<drawing::Point>& crossing() const { return crossing_; }
    void setCrossing(std::vector<drawing::Point> corners) { crossing_ = std::move(corners); }

    // -- what a token means; nothing when it is no such thing
    /// True for a word that has the next point snapped, such as "_END" or "_NON".
    bool takesSnapWord(const Token& token);
    std::optional<drawing::Point> pointOf(const Token& token);
    std::optional<double> numberOf(const Token& token);
    std::optional<double> angleOf(const Token& token);

    // -- system variables; false when the value is not allowed
    bool setReal(std::u16string_view variable, double value);
    bool setText(std::u16string_view variable, std::u16string_view value);

    // -- output
    void print(std::u16string_view line);
    [[noreturn]] void refuse(std::u16string_view why)
    {
        throw CommandRefusal{std::u16string(name_) + u": " + std::u16string(why)};
    }

    /// What the command waits for; null while it runs.
    Wait* waiting() { return waiting_; }
    void setWaiting(Wait* wait) { waiting_ = wait; }

private:
    Document& document_;
    std::u16string_view name_;
    Wait* waiting_ = nullptr;
    std::vector<drawing::Point> crossing_;
    std::optional<SnapModes> snap_; // for the next point
};

inline void Wait::await_suspend(std::coroutine_handle<> waiting) noexcept
{
    waiting_ = waiting;
    command_.setWaiting(this);
}

} // namespace orvald
