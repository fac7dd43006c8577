// SPDX-License-Identifier: LicenseRef-ORVALD
// The walk over a drawing that makes every picture: each entity becomes strokes and fills on a
// canvas. It runs twice, first in world coordinates to find out how large the drawing is, then in
// pixels. Nothing is kept of an entity, so memory does not grow with the drawing.
#pragma once

#include "canvas.h"
#include "drawing/views.h"
#include "lettering.h"
#include "looks.h"
#include "picture/picture.h"
#include "view.h"

#include <map>
#include <string>
#include <vector>

namespace orvald::picture {

class Painter
{
public:
    /// Without a view the walk measures: coordinates are the world's, lines have no width, and what
    /// only a view can size (points, endless lines) counts with its position alone.
    Painter(const drawing::Drawing& drawing, const Options& options, const View* view,
            Canvas& canvas, Summary& summary);

    /// All entities of a block record.
    void space(drawing::Index blockRecord);
    void overlay(const std::vector<OverlaySegment>& segments);

private:
    friend class DimPainter; // one dimension without a block

    /// Where the entities of a block stand and who shows them.
    struct Place
    {
        drawing::Transform map;      // to the coordinates of the canvas
        const Look* block = nullptr; // look of the insert; null in a space
        // Texts of attributes, UTF-8, by their definitions in the block; null: they do not show.
        const std::map<drawing::Handle, std::string>* attributes = nullptr;
    };
    /// From the entity coordinates of a plane entity to those of the canvas.
    static Affine planeOf(const drawing::Transform& map, drawing::Point normal, double elevation);
    static double scaleOf(const drawing::Transform& map);

    // painter.cpp: the walk
    void block(drawing::Index blockRecord, const Place& place);
    void entity(drawing::Index index, const Place& place);
    void insert(drawing::Index index, const Look& look, const Place& place);
    void other(const drawing::Record& record, const Look& look, const Place& place);
    void attributeDefinition(const drawing::Record& record, const Look& look, const Place& place);
    /// A table is drawn as its block.
    void table(const drawing::Record& record, const Look& look, const Place& place);
    /// False, from then on, when the picture has got too many parts.
    bool spend(std::size_t steps);

    // painter.cpp: shapes on the canvas
    double penWidth(const Look& look) const;
    /// The path as a line of the look; `scale` is that of its place, for line types. Sharp ends and
    /// a width of its own: a wide polyline.
    void stroke(const Path& path, const Look& look, double scale);
    void strokeWide(const Path& path, const Look& look, double scale, double width);
    void strokeWith(const Path& path, const Look& look, double scale, Pen pen);
    void lineMarks(const LineType& type, double unit, std::size_t runs, const Look& look);
    void fill(const Path& path, const Look& look, FillRule rule);

    // painter_curves.cpp
    void line(const drawing::Record& record, const Look& look, const Place& place);
    void endless(const drawing::Record& record, const Look& look, const Place& place);
    void point(const drawing::Record& record, const Look& look, const Place& place);
    void circle(const drawing::Record& record, const Look& look, const Place& place);
    void ellipse(const drawing::Record& record, const Look& look, const Place& place);
    void spline(const drawing::Record& record, const Look& look, const Place& place);
    void points(const std::vector<drawing::Point>& points, bool closed, const Look& look,
                const Place& place);

    // painter_polylines.cpp
    void polyline(drawing::Index index, const Look& look, const Place& place);
    void mesh(drawing::Index index, const Look& look, const Place& place);
    /// MESH: the net that its smooth surface is made from.
    void net(const drawing::Record& record, const Look& look, const Place& place);
    /// Adds the area of a segment whose width goes evenly from its start to its end, its left edge
    /// first.
    void addWideSegment(const Affine& plane, const drawing::PolylineVertex& from, Vec to);

    // painter_leaders.cpp
    void leader(const drawing::Record& record, const Look& look, const Place& place);
    void multiLeader(const drawing::Record& record, const Look& look, const Place& place);
    /// An arrow head in the shape of a block record, the filled one when there is none of that
    /// handle; `along` runs from its tip into the line.
    void arrow(drawing::Point tip, drawing::Point along, double size, drawing::Handle blockRecord,
               const Look& look, const Place& place);
    /// The bends of a leader, or points of the curve through them.
    std::vector<drawing::Point> throughBends(const std::vector<drawing::Point>& bends, bool curved,
                                             const Place& place) const;

    // painter_dimensions.cpp
    void dimension(const drawing::Record& record, const Look& look, const Place& place);

    // painter_tolerances.cpp
    void tolerance(const drawing::Record& record, const Look& look, const Place& place);

    // painter_mlines.cpp
    void mline(const drawing::Record& record, const Look& look, const Place& place);

    // painter_areas.cpp
    void solid(const drawing::Record& record, const Look& look, const Place& place);
    void face(const drawing::Record& record, const Look& look, const Place& place);
    void hatch(const drawing::Record& record, const Look& look, const Place& place);

    // painter_windows.cpp
    /// False, and nothing to be closed, when the path is no clip or lies in too many others.
    bool openClip(const Path& path);
    void closeClip();
    void viewport(drawing::Index index, const Look& look, const Place& place);
    bool outlineInto(Path& path, drawing::Index index, const Place& place);
    /// Opens the clip of an insert that has one.
    bool clipInsert(drawing::Index insert, const drawing::Transform& blockToCanvas);
    void image(const drawing::Record& record, const Look& look, const Place& place);

    // painter_text.cpp
    /// An area behind a text.
    struct TextGround
    {
        double border = 0.0; // in heights of letters
        Colour colour;
    };
    /// `instead` stands for the name that the definition of an attribute shows.
    void text(const drawing::Record& record, const Look& look, const Place& place,
              const std::string* instead = nullptr);
    void mtext(const drawing::Record& record, const Look& look, const Place& place);
    void paragraph(const drawing::MTextView& view, const Look& look, const Place& place,
                   const TextGround* ground = nullptr);
    void letters(const std::vector<Lettering>& pieces, const Affine& toCanvas, const Look& look,
                 const Look* block);

    const drawing::Drawing& drawing_;
    const View* view_; // null: measuring
    Canvas& canvas_;
    Summary& summary_;
    Looks looks_;
    std::vector<drawing::Index> open_; // block records being drawn, outermost first
    // By block record, as drawOrder tells. Nodes of a map stay where they are.
    std::map<drawing::Index, std::vector<drawing::Index>> orders_;
    std::size_t stepsLeft_;
    std::size_t clips_ = 0;       // that are open
    double lineTypeFactor_ = 1.0; // of the view port whose inside is being drawn
    Path path_;                   // reused: what goes to the canvas
    Path local_;                  // reused: the same in the coordinates of the entity
    std::vector<Chords> runs_;    // reused
    Dashes dashes_;               // reused
};

} // namespace orvald::picture
