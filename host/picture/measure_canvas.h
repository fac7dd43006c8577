// SPDX-License-Identifier: LicenseRef-ORVALD
// A canvas that only finds out how far the shapes reach.
#pragma once

#include "canvas.h"

namespace orvald::picture {

class MeasureCanvas final : public Canvas
{
public:
    void stroke(const Path& path, const Ink&, const Pen& pen) override
    {
        Bounds box = path.bounds();
        box.grow(pen.width / 2.0);
        add(box);
    }
    void fill(const Path& path, const Ink&, FillRule) override { add(path.bounds()); }

    void pushClip(const Path& path) override
    {
        const Bounds box = path.bounds();
        clips_.push_back(clips_.empty() ? box : common(box, clips_.back()));
    }
    void popClip() override { clips_.pop_back(); }

    const Bounds& bounds() const { return bounds_; }

private:
    void add(const Bounds& shape)
    {
        const Bounds box = clips_.empty() ? shape : common(shape, clips_.back());
        if (box.empty) return;
        bounds_.add({box.left, box.bottom});
        bounds_.add({box.right, box.top});
    }
    Bounds bounds_;
    std::vector<Bounds> clips_; // what is left by each clip and those around it
};

} // namespace orvald::picture
