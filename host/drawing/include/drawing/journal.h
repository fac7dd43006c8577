// SPDX-License-Identifier: LicenseRef-ORVALD
// What a drawing needs to go back to an earlier state, and forth again, exactly: the state of every
// record, table and header variable from before its first change within a step.
// Only the newest step can be taken back; taking it back makes its state before and the present one
// change places, so that redoing is the same exchange once more.
#pragma once

#include "drawing/header.h"
#include "drawing/record.h"

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orvald::drawing {

class Drawing;

inline constexpr std::size_t kTableCount = 9;

/// A table of a drawing.
struct SymbolTable
{
    Index head = kNone;
    std::vector<Index> records;                    // in file order, erased ones too
    std::unordered_map<std::string, Index> byName; // key of the name
};

/// A record and its neighbours under the same owner.
struct RecordState
{
    Record record;
    Index previous = kNone, next = kNone;
};

class Journal final : private HeaderVariables::Watcher
{
public:
    /// Records from now on.
    explicit Journal(Drawing& drawing);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// What follows is a step of its own; nothing within a group.
    void step();
    /// Steps up to the matching endGroup count as one. Groups nest.
    void beginGroup();
    /// False when no group is open.
    bool endGroup();
    bool inGroup() const { return groups_ != 0; }
    /// The present state can be returned to by back(). Open groups end.
    void mark();
    bool hasMark() const;

    /// Takes back the newest steps, `count` at most; open groups end. Gives how many there were.
    std::size_t undo(std::size_t count);
    /// Takes back everything since the last mark, which is used up; without a mark everything.
    void back();
    /// Does again what the last undo or back took away, while nothing else has changed since. False
    /// when there is nothing.
    bool redo();

private:
    friend class Drawing;
    /// States from before the step; while it is taken back, those from behind it.
    struct Step
    {
        std::uint32_t number = 0;       // of all steps ever
        Index firstNew = 0, endNew = 0; // places that were taken in within the step
        Handle nextHandle = 0;
        Index root = kNone;
        std::vector<std::pair<Index, RecordState>> records; // each once
        std::vector<RecordState> made; // what stands in the new places, while it is taken back
        std::array<std::unique_ptr<SymbolTable>, kTableCount> tables; // null: unchanged
        std::unique_ptr<HeaderVariables> header;                      // null: unchanged
        int marks = 0;                                                // that stand in front of it
        std::size_t undoneBy = 0; // number of the undo that took it back
    };

    void begin(int marks);
    bool isUnchanged() const;
    /// Ends the present step, or drops it when nothing has changed in it and gives its marks; begin
    /// must follow.
    int closeStep();
    void saveRecord(Index index);
    void saveTable(std::size_t table);
    void headerChanges() override;
    void exchange(Step& step);
    /// Gives the marks that stood in front of it.
    int takeBackLast();

    Drawing& drawing_;
    std::vector<Step> done_; // the last one takes the changes in
    std::vector<Step> undone_;
    std::uint32_t lastNumber_ = 0;
    std::uint64_t begunAt_ = 0; // change count of the drawing when the present step began
    std::size_t groups_ = 0;    // open ones
    std::size_t undos_ = 0;
};

} // namespace orvald::drawing
