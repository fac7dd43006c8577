// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary vectors of a document: not in the drawing, gone with a redraw, shown on top of
// pictures.
#pragma once

#include <vector>

namespace orvald {

struct TemporaryVector
{
    double from[3], to[3]; // drawing units
    int colour;            // 1 to 255, -1 complements what it covers
    bool dashed;
};

class TemporaryGraphics
{
public:
    /// A vector of colour -1 takes an equal one away that was drawn before, in either direction.
    void draw(const double from[3], const double to[3], int colour, bool dashed);
    void clear() { vectors_.clear(); }
    const std::vector<TemporaryVector>& vectors() const { return vectors_; }

private:
    std::vector<TemporaryVector> vectors_;
};

} // namespace orvald
