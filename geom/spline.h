// SPDX-License-Identifier: LicenseRef-ORVALD
// Rational splines by their control points.
#pragma once

#include "kex/point.h"

#include <vector>

namespace KEX {

class Spline
{
public:
    explicit Spline(int degree) : degree_(degree) {}
    void addControl(const CKexPoint3d& p) { controls_.push_back(p); }
    void addKnot(double knot) { knots_.push_back(knot); }
    /// Of the next control point; 1 for those that get none.
    void addWeight(double weight) { weights_.push_back(weight); }

    /// Degree, knots and control points fit each other; the calls below need it.
    bool isGood() const;
    /// All control points have one Z.
    bool isFlat() const;
    double from() const { return knots_[degree()]; }
    double to() const { return knots_[controls_.size()]; }
    /// The knots strictly between, each once.
    std::vector<double> breaks() const;
    /// Method: de Boor's algorithm in homogeneous coordinates.
    CKexPoint3d at(double t) const;

private:
    std::size_t degree() const { return static_cast<std::size_t>(degree_); }
    double weight(std::size_t i) const { return i < weights_.size() ? weights_[i] : 1.0; }

    int degree_;
    std::vector<CKexPoint3d> controls_;
    std::vector<double> knots_, weights_;
};

} // namespace KEX
