// SPDX-License-Identifier: LicenseRef-ORVALD
// Splines piece by piece, as many chords as the page can show.
#include "splines.h"

#include <cmath>

namespace orvald::picture {

using drawing::BezierPiece;
using drawing::Point;
using drawing::WeightedPoint;

namespace {

constexpr int kMostChordsOfPiece = 512;

// A smooth piece of that many pixels deviates from its chords by less than a quarter of a pixel.
int chordsFor(double pixels)
{
    const double wanted = 2.0 + 2.0 * std::sqrt(pixels);
    return wanted < kMostChordsOfPiece ? static_cast<int>(wanted) : kMostChordsOfPiece;
}

Point placeOf(const WeightedPoint& point)
{
    return point.weight != 0.0 ? 1.0 / point.weight * point.at : point.at;
}

double hullOf(const BezierPiece& piece)
{
    double hull = 0.0;
    for (std::size_t i = 1; i < piece.points.size(); ++i)
        hull += length(placeOf(piece.points[i]) - placeOf(piece.points[i - 1]));
    return hull;
}

} // namespace

std::vector<Point> splinePoints(const drawing::SplineView& spline, double scale)
{
    const std::vector<BezierPiece> pieces = bezierPieces(spline);
    if (pieces.empty()) return spline.controls;
    std::vector<Point> out{pieces.front().at(pieces.front().from).at};
    for (const BezierPiece& piece : pieces) {
        const int chords = piece.points.size() == 2 ? 1 : chordsFor(hullOf(piece) * scale);
        for (int k = 1; k <= chords; ++k)
            out.push_back(piece.at(piece.from + (piece.to - piece.from) * (double(k) / chords)).at);
    }
    return out;
}

} // namespace orvald::picture
