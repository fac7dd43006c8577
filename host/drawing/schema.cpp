// SPDX-License-Identifier: LicenseRef-ORVALD
// The schemas: order of groups as AutoCAD writes them, defaults as its lists show them.
#include "schema.h"

#include "angles.h"
#include "drawing/text.h"

#include <algorithm>
#include <iterator>

namespace orvald::drawing {
namespace {

using enum Need;

constexpr GroupRule kNormal{210, told};

constexpr GroupRule kCommon[] = {
    {67, told},      {410, optional},   {8, always, 0, "0"}, {6, hidden, 0, "ByLayer"},
    {347, optional}, {62, hidden, 256}, {370, hidden, -1},   {48, hidden, 1},
    {60, hidden},    {420, optional},   {430, optional},     {440, optional},
    {390, optional}, {284, optional}};

constexpr GroupRule kLine[] = {{39, told}, {10, required}, {11, required}, kNormal};
constexpr GroupRule kPoint[] = {{10, required}, {39, told}, kNormal, {50, told}};
constexpr GroupRule kCircle[] = {{39, told}, {10, required}, {40, required}, kNormal};
constexpr GroupRule kArc[] = {{50, required}, {51, required}};
constexpr GroupRule kEllipse[] = {{10, required}, {11, required}, kNormal,
                                  {40, required}, {41, required}, {42, required}};
constexpr GroupRule kRay[] = {{10, required}, {11, required}};
constexpr GroupRule kLwpolyline[] = {{90, required}, {70, always},   {43, always}, {38, told},
                                     {39, told},     {10, required}, kNormal};
constexpr GroupRule kPolyline[] = {{66, always, 1}, {10, always}, {39, told}, {70, told},
                                   {40, told},      {41, told},   {71, told}, {72, told},
                                   {73, told},      {74, told},   {75, told}, kNormal};
constexpr GroupRule kVertex[] = {{10, required}, {40, told},     {41, told},     {42, told},
                                 {70, told},     {50, told},     {71, optional}, {72, optional},
                                 {73, optional}, {74, optional}, {91, optional}};
constexpr GroupRule kText[] = {{39, told}, {10, required}, {40, required}, {1, required},
                               {50, told}, {41, told, 1},  {51, told},     {7, told, 0, "Standard"},
                               {71, told}, {72, told},     {11, told},     kNormal};
constexpr GroupRule kTextEnd[] = {{73, told}};
constexpr GroupRule kAttrib[] = {{280, always}, {2, required}, {70, required},
                                 {73, told},    {74, told},    {280, always}};
constexpr GroupRule kAttdef[] = {{280, always}, {3, always, 0, ""}, {2, required}, {70, required},
                                 {73, told},    {74, told},         {280, always}};
constexpr GroupRule kMtext[] = {{10, required},  {40, always, 2.5}, {41, told},
                                {46, optional},  {71, always, 1},   {72, always, 5},
                                {3, optional},   {1, required},     {7, told, 0, "Standard"},
                                kNormal,         {11, optional},    {42, optional},
                                {43, optional},  {50, told},        {73, told, 1},
                                {44, told, 1},   {90, optional},    {63, optional},
                                {421, optional}, {45, optional},    {441, optional}};
constexpr GroupRule kInsert[] = {{66, hidden},  {2, required}, {10, required}, {41, told, 1},
                                 {42, told, 1}, {43, told, 1}, {50, told},     {70, told},
                                 {71, told},    {44, told},    {45, told},     kNormal};
constexpr GroupRule kSolid[] = {{10, required}, {11, required}, {12, required},
                                {13, required}, {39, told},     kNormal};
constexpr GroupRule kFace[] = {
    {10, required}, {11, required}, {12, required}, {13, required}, {70, told}};

constexpr GroupRule kLayer[] = {
    {2, required},    {70, always},      {62, always, 7}, {6, always, 0, "Continuous"},
    {290, hidden, 1}, {370, always, -3}, {390, optional}, {347, optional},
    {348, optional}};
constexpr GroupRule kStyle[] = {{2, required},     {70, always},          {40, always},
                                {41, always, 1},   {50, always},          {71, always},
                                {42, always, 2.5}, {3, always, 0, "txt"}, {4, always, 0, ""}};
constexpr GroupRule kAppid[] = {{2, required}, {70, always}};
constexpr GroupRule kUcs[] = {{2, required},  {70, always}, {10, required}, {11, required},
                              {12, required}, {79, always}, {146, always}};
constexpr GroupRule kLtype[] = {{2, required},    {70, always}, {3, always, 0, ""},
                                {72, always, 65}, {73, always}, {40, always}};

constexpr SectionRule kCommonSection{"AcDbEntity", kCommon};
constexpr SectionRule kRecordSection{"AcDbSymbolTableRecord", {}};

constexpr SectionRule kLineSections[] = {kCommonSection, {"AcDbLine", kLine}};
constexpr SectionRule kPointSections[] = {kCommonSection, {"AcDbPoint", kPoint}};
constexpr SectionRule kCircleSections[] = {kCommonSection, {"AcDbCircle", kCircle}};
constexpr SectionRule kArcSections[] = {kCommonSection, {"AcDbCircle", kCircle}, {"AcDbArc", kArc}};
constexpr SectionRule kEllipseSections[] = {kCommonSection, {"AcDbEllipse", kEllipse}};
constexpr SectionRule kRaySections[] = {kCommonSection, {"AcDbRay", kRay}};
constexpr SectionRule kXlineSections[] = {kCommonSection, {"AcDbXline", kRay}};
constexpr SectionRule kLwpolylineSections[] = {kCommonSection, {"AcDbPolyline", kLwpolyline}};
constexpr SectionRule kPolylineSections[] = {kCommonSection, {"AcDb2dPolyline", kPolyline}};
constexpr SectionRule kVertexSections[] = {
    kCommonSection, {"AcDbVertex", {}}, {"AcDb2dVertex", kVertex}};
constexpr SectionRule kTextSections[] = {
    kCommonSection, {"AcDbText", kText}, {"AcDbText", kTextEnd}};
constexpr SectionRule kAttribSections[] = {
    kCommonSection, {"AcDbText", kText}, {"AcDbAttribute", kAttrib}};
constexpr SectionRule kAttdefSections[] = {
    kCommonSection, {"AcDbText", kText}, {"AcDbAttributeDefinition", kAttdef}};
constexpr SectionRule kMtextSections[] = {kCommonSection, {"AcDbMText", kMtext}};
constexpr SectionRule kInsertSections[] = {kCommonSection, {"AcDbBlockReference", kInsert}};
constexpr SectionRule kSolidSections[] = {kCommonSection, {"AcDbTrace", kSolid}};
constexpr SectionRule kFaceSections[] = {kCommonSection, {"AcDbFace", kFace}};
constexpr SectionRule kSeqendSections[] = {kCommonSection};
constexpr SectionRule kLayerSections[] = {kRecordSection, {"AcDbLayerTableRecord", kLayer}};
constexpr SectionRule kStyleSections[] = {kRecordSection, {"AcDbTextStyleTableRecord", kStyle}};
constexpr SectionRule kAppidSections[] = {kRecordSection, {"AcDbRegAppTableRecord", kAppid}};
constexpr SectionRule kUcsSections[] = {kRecordSection, {"AcDbUCSTableRecord", kUcs}};
constexpr SectionRule kLtypeSections[] = {kRecordSection, {"AcDbLinetypeTableRecord", kLtype}};

constexpr Schema kSchemas[] = {{Kind::line, Form::plain, false, kLineSections},
                               {Kind::point, Form::plain, false, kPointSections},
                               {Kind::circle, Form::plain, false, kCircleSections},
                               {Kind::arc, Form::plain, false, kArcSections},
                               {Kind::ellipse, Form::plain, true, kEllipseSections},
                               {Kind::ray, Form::plain, true, kRaySections},
                               {Kind::xline, Form::plain, true, kXlineSections},
                               {Kind::lwpolyline, Form::lwpolyline, true, kLwpolylineSections},
                               {Kind::polyline, Form::plain, false, kPolylineSections},
                               {Kind::vertex, Form::plain, false, kVertexSections},
                               {Kind::seqend, Form::plain, false, kSeqendSections},
                               {Kind::text, Form::plain, false, kTextSections},
                               {Kind::attrib, Form::plain, false, kAttribSections},
                               {Kind::attdef, Form::plain, false, kAttdefSections},
                               {Kind::mtext, Form::mtext, true, kMtextSections},
                               {Kind::insert, Form::plain, false, kInsertSections},
                               {Kind::solid, Form::plain, false, kSolidSections},
                               {Kind::trace, Form::plain, false, kSolidSections},
                               {Kind::face3d, Form::plain, false, kFaceSections},
                               {Kind::layer, Form::plain, true, kLayerSections},
                               {Kind::style, Form::plain, true, kStyleSections},
                               {Kind::appid, Form::plain, true, kAppidSections},
                               {Kind::ucs, Form::plain, true, kUcsSections},
                               {Kind::ltype, Form::list, true, kLtypeSections}};

} // namespace

void GroupRule::addDefault(TagList& tags) const
{
    TagKind kind = TagKind::text;
    fileKind(code, kind);
    if (kind == TagKind::text) tags.addText(code, text);
    else if (beginsPoint(code)) tags.addPoint(code, {0.0, 0.0, code == 210 ? 1.0 : 0.0});
    else if (kind == TagKind::real) tags.addReal(code, number);
    else if (kind == TagKind::handle) tags.addHandle(code, 0);
    else tags.addInteger(code, static_cast<std::int64_t>(number));
}

std::size_t SectionRule::find(int code, std::size_t from) const
{
    for (std::size_t i = from; i < groups.size(); ++i)
        if (groups[i].code == code) return i;
    return npos;
}

const GroupRule* Schema::find(int code) const
{
    for (const SectionRule& section : sections) {
        const std::size_t at = section.find(code);
        if (at != SectionRule::npos) return &section.groups[at];
    }
    return nullptr;
}

const Schema* schemaOf(Kind kind)
{
    const auto found = std::find_if(std::begin(kSchemas), std::end(kSchemas),
                                    [kind](const Schema& schema) { return schema.kind == kind; });
    return found == std::end(kSchemas) ? nullptr : found;
}

const SectionRule& commonSection() { return kCommonSection; }

std::string_view polylineMarker(std::int64_t flags)
{
    return (flags & 8) != 0    ? "AcDb3dPolyline"
           : (flags & 16) != 0 ? "AcDbPolygonMesh"
           : (flags & 64) != 0 ? "AcDbPolyFaceMesh"
                               : "AcDb2dPolyline";
}

std::string_view vertexMarker(std::int64_t polylineFlags, std::int64_t vertexFlags)
{
    if ((polylineFlags & 64) != 0)
        return (vertexFlags & 64) != 0 ? "AcDbPolyFaceMeshVertex" : "AcDbFaceRecord";
    return (polylineFlags & 8) != 0    ? "AcDb3dPolylineVertex"
           : (polylineFlags & 16) != 0 ? "AcDbPolygonMeshVertex"
                                       : "AcDb2dVertex";
}

bool sameValue(Tag a, Tag b)
{
    if (a == b) return true;
    if (a.code() != b.code()) return false;
    if (a.isText() && b.isText()) return text8(a.text()) == text8(b.text());
    if (a.isPoint() && b.isPoint()) {
        const Point p = a.point(), q = b.point();
        const bool planar = a.kind() == TagKind::point2 || b.kind() == TagKind::point2;
        return p.x == q.x && p.y == q.y && (planar || p.z == q.z);
    }
    if (a.kind() == TagKind::real && b.kind() == TagKind::real)
        return isAngle(a.code()) ? toRadians(a.real()) == toRadians(b.real())
                                 : a.real() == b.real();
    return a.isInteger() && b.isInteger() && a.integer() == b.integer();
}

} // namespace orvald::drawing
