// SPDX-License-Identifier: LicenseRef-ORVALD
// What tests of the kernel share: how GoogleTest shows the kernel's values, chains written as LISP
// text, and random values.
#pragma once

#include "kex/format.h"
#include "kex/rb_print.h"
#include "kex/vertex.h"

#include <gtest/gtest.h>
#include <ostream>
#include <random>

inline void PrintTo(const CKexString& text, std::ostream* out)
{
    *out << '"' << text.toUtf8() << '"';
}
inline void PrintTo(const CKexPoint3d& p, std::ostream* out)
{
    *out << KEX::format(KT("({} {} {})"), p.x, p.y, p.z).toUtf8();
}

namespace kextest {

/// LISP text of a chain on one line, its values with a blank between them.
inline std::string lispText(const resbuf* chain)
{
    std::string text = KEX::rbPrint(chain).toUtf8();
    if (text.ends_with('\n')) text.pop_back();
    for (char& c : text) {
        if (c == '\n') c = ' ';
    }
    return text;
}

/// Equal numbers in every run.
class Random
{
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    /// From 0 up to, not including, `end`.
    int below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
    double from(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(engine_);
    }
    ACHAR unit() { return static_cast<ACHAR>(below(0x10000)); }
    CKexPoint3d point(double reach)
    {
        return {from(-reach, reach), from(-reach, reach), from(-9, 9)};
    }

private:
    std::mt19937_64 engine_;
};

} // namespace kextest
