// SPDX-License-Identifier: LicenseRef-ORVALD
// What is in a drawing, counted: for people and programs that want to know before they work on it.
// Texts are UTF-8; erased records do not count.
#pragma once

#include "drawing/drawing.h"

#include <map>

namespace orvald::drawing {

struct LayerContents
{
    std::string name, lineType;
    int colour = 7; // 1 to 255
    bool off = false, frozen = false, locked = false;
    std::size_t entities = 0; // parts of entities do not count
};

struct BlockContents
{
    std::string name;
    std::string path;         // of the drawing that an external reference shows, else ""
    bool isReference = false; // an external reference
    std::size_t entities = 0; // inside it
    std::size_t inserts = 0;  // entities anywhere that show it
};

/// A type that is none of the host platform's own: some application's, or a proxy's.
struct ForeignType
{
    std::size_t count = 0;
    std::string className, application; // "" when no class of the drawing tells them
};

struct Contents
{
    std::string units;                                    // "mm"; "" for drawings without a unit
    Box model;                                            // world box of the model
    std::size_t inModel = 0, inSheets = 0, inBlocks = 0;  // entities, parts not counted
    std::map<std::string, std::size_t> entities, objects; // by type; parts not counted
    std::vector<LayerContents> layers;                    // in the order of the file
    std::vector<std::string> layouts;                     // in their order of tabs
    std::vector<BlockContents> blocks;                    // without those of layouts
    std::map<std::string, ForeignType> foreign;
};

Contents contentsOf(const Drawing& drawing);

} // namespace orvald::drawing
