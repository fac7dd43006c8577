// SPDX-License-Identifier: LicenseRef-ORVALD
// Laws on random input, against the plainest way to compute the same.
#include "bare_world.h"

#include "lisp/units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using namespace orvald::lisp;

// -- units

TEST(Units, WhatIsWrittenReadsBackWithinHalfOfTheLastPlace)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    for (int round = 0; round < 60000; ++round) {
        const int mode = 1 + round % 5;
        const int precision = static_cast<int>(random() % 9);
        UnitSettings settings;
        settings.unitMode = static_cast<int>(random() % 2);
        settings.zeroSuppression = static_cast<int>(random() % 16);
        const double value = mantissa(random) * std::pow(10.0, static_cast<int>(random() % 9) - 2);
        const std::u16string text = distanceText(value, mode, precision, settings);
        const auto read = readDistance(text, mode);
        double last = mode >= 4 ? std::pow(2.0, -precision) : std::pow(10.0, -precision);
        if (mode == 1) last *= std::pow(10.0, std::floor(std::log10(std::fabs(value))));
        ASSERT_TRUE(read) << toUtf8(text);
        ASSERT_NEAR(*read, value, 0.5000001 * last + 1e-15 * std::fabs(value))
            << toUtf8(text) << " in mode " << mode;
    }
}

TEST(Units, AnglesReadBackAndNeverShowAFullTurnOrSixtyParts)
{
    constexpr double kTurn = 2.0 * 3.14159265358979323846;
    std::mt19937 random(2);
    std::uniform_real_distribution<double> turns(-2.0, 2.0);
    for (int round = 0; round < 60000; ++round) {
        const int mode = round % 5;
        const int precision = static_cast<int>(random() % 9);
        UnitSettings settings;
        settings.unitMode = static_cast<int>(random() % 2);
        double radians = turns(random) * kTurn;
        // Half of the angles lie next to the places where something is carried over.
        if (round % 2 == 0) {
            radians = std::round(radians / kTurn * 360.0) * kTurn / 360.0 + turns(random) * 1e-7;
        }
        const std::u16string text = angleText(radians, mode, precision, settings);
        EXPECT_EQ(text.find(u"d60"), std::u16string::npos) << toUtf8(text);
        EXPECT_EQ(text.find(u"'60"), std::u16string::npos) << toUtf8(text);
        const auto read = readAngle(text, mode);
        ASSERT_TRUE(read) << toUtf8(text);
        ASSERT_TRUE(*read >= 0.0 && *read < kTurn) << toUtf8(text);
        const double minutes = kTurn / 360.0 / 60.0;
        double last = mode == 2   ? kTurn / 400.0 * std::pow(10.0, -precision)
                      : mode == 3 ? std::pow(10.0, -precision)
                                  : kTurn / 360.0 * std::pow(10.0, -precision);
        if (mode == 1 || mode == 4) {
            last = precision == 0   ? 60.0 * minutes
                   : precision <= 2 ? minutes
                                    : minutes / 60.0 * std::pow(10.0, -std::max(precision - 4, 0));
        }
        const double difference = std::remainder(*read - radians, kTurn);
        ASSERT_NEAR(difference, 0.0, 0.5000001 * last + 1e-12) << toUtf8(text);
    }
}

TEST(Units, ReadingIsAValueOrNothingForAnyText)
{
    std::mt19937 random(3);
    const std::u16string alphabet = u"0123456789.'\"/- dDgrNSEWe+x";
    for (int round = 0; round < 200000; ++round) {
        std::u16string text;
        for (std::size_t i = random() % 12; i > 0; --i) {
            text.push_back(alphabet[random() % alphabet.size()]);
        }
        const int mode = static_cast<int>(random() % 6);
        const auto distance = readDistance(text, mode);
        const auto angle = readAngle(text, mode);
        EXPECT_FALSE(std::isnan(distance.value_or(0.0))) << toUtf8(text);
        EXPECT_TRUE(angle.value_or(0.0) >= 0.0 && angle.value_or(0.0) < 6.2831853072)
            << toUtf8(text);
    }
    for (const double odd : {HUGE_VAL, -HUGE_VAL, std::nan(""), 1e300, -1e300, 5e-324, -0.0}) {
        for (int mode = 0; mode < 7; ++mode) {
            EXPECT_FALSE(distanceText(odd, mode, 99, {}).empty());
            EXPECT_FALSE(angleText(odd, mode, -5, {}).empty());
        }
    }
}

// -- lists

TEST(Sorting, GivesTheStableOrderForEveryLength)
{
    BareHost host;
    World world(host);
    world.evalText(u"(defun by-key (a b) (< (car a) (car b)))");
    std::mt19937 random(5);
    for (int length = 0; length < 120; ++length) {
        std::vector<std::pair<int, int>> expected;
        ListBuilder list(world);
        for (int i = 0; i < length; ++i) {
            expected.emplace_back(static_cast<int>(random() % 9), i);
            list.add(world.makeList({Value::integer(expected.back().first), Value::integer(i)}));
        }
        std::stable_sort(expected.begin(), expected.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        const Root kept(world, list.list());
        const Value arguments[] = {kept.value, Value::symbol(world.intern(u"by-key"))};
        const Outcome sorted = world.applyTop(u"vl-sort", arguments);
        ASSERT_TRUE(sorted.ok());
        Value rest = sorted.value;
        for (const auto& [key, place] : expected) {
            ASSERT_EQ(car(car(rest)), Value::integer(key)) << length;
            ASSERT_EQ(car(cdr(car(rest))), Value::integer(place)) << length;
            rest = cdr(rest);
        }
        ASSERT_TRUE(rest.isNil());
    }
}

// -- evaluation: an expression compiled in place, evaluated as data, and inside a function must
// give the same

TEST(Evaluation, IsTheSameHoweverAnExpressionIsReached)
{
    BareHost host;
    World world(host);
    std::mt19937 random(6);
    const char16_t* const kAtoms[] = {u"0",     u"3",  u"-2", u"2147483647", u"1.5", u"nil",
                                      u"\"a\"", u"va", u"vb", u"'(1 2)",     u"vl"};
    const char16_t* const kUnary[] = {u"1+",  u"1-",    u"car",  u"cdr",   u"cadr",  u"null",
                                      u"not", u"zerop", u"atom", u"listp", u"abs",   u"-",
                                      u"fix", u"~",     u"last", u"type",  u"caddr", u"minusp"};
    const char16_t* const kBinary[] = {u"+",    u"-",   u"*",     u"/",    u"<",  u"<=",     u">",
                                       u"=",    u"/=",  u"equal", u"cons", u"eq", u"logand", u"rem",
                                       u"list", u"nth", u"max",   u"and",  u"or", u"progn"};
    const auto expression = [&](const auto& self, int depth) -> std::u16string {
        const unsigned choice = random() % 8;
        if (depth == 0 || choice == 0) return kAtoms[random() % std::size(kAtoms)];
        if (choice < 3) {
            return std::u16string(u"(") + kUnary[random() % std::size(kUnary)] + u" " +
                   self(self, depth - 1) + u")";
        }
        std::u16string text = std::u16string(u"(") + kBinary[random() % std::size(kBinary)];
        for (unsigned i = choice == 7 ? 3 : 2; i > 0; --i) text += u" " + self(self, depth - 1);
        return text + u")";
    };
    const auto outcomeOf = [&](const std::u16string& text) {
        const Outcome outcome = world.evalText(text);
        return outcome.ok() ? world.prin1(outcome.value) : u"error " + outcome.error->message;
    };
    world.evalText(u"(setq va 7 vb 2.5 vl '(4 5 6))");
    for (int round = 0; round < 8000; ++round) {
        const std::u16string form = expression(expression, 4);
        const std::u16string direct = outcomeOf(form);
        ASSERT_EQ(outcomeOf(u"(defun f (va / unused) " + form + u") (f 7)"), direct);
        ASSERT_EQ(outcomeOf(u"(eval '" + form + u")"), direct);
        // The outermost function applied to evaluated arguments is the builtin itself, not its
        // inlined form.
        if (form.front() == u'(' && !form.starts_with(u"(and") && !form.starts_with(u"(or")) {
            ASSERT_EQ(
                outcomeOf(u"(apply (car '" + form + u") (mapcar 'eval (cdr '" + form + u")))"),
                direct)
                << toUtf8(form);
        }
    }
}

} // namespace
