// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/journal.h"

#include "drawing/drawing.h"

#include <algorithm>

namespace orvald::drawing {

Journal::Journal(Drawing& drawing) : drawing_(drawing)
{
    drawing_.header.setWatcher(this);
    begin(0);
}

Journal::~Journal() { drawing_.header.setWatcher(nullptr); }

void Journal::begin(int marks)
{
    Step& step = done_.emplace_back();
    step.number = ++lastNumber_;
    step.firstNew = step.endNew = drawing_.count_;
    step.nextHandle = drawing_.nextHandle_;
    step.root = drawing_.root_;
    step.marks = marks;
    drawing_.step_ = step.number;
    drawing_.firstNew_ = step.firstNew;
    begunAt_ = drawing_.changes_;
}

bool Journal::isUnchanged() const
{
    return drawing_.changes_ == begunAt_ && done_.back().header == nullptr;
}

int Journal::closeStep()
{
    if (!isUnchanged()) {
        done_.back().endNew = drawing_.count_;
        undone_.clear();
        return 0;
    }
    const int marks = done_.back().marks;
    done_.pop_back();
    return marks;
}

void Journal::step()
{
    if (groups_ == 0) begin(closeStep());
}

void Journal::beginGroup()
{
    step();
    ++groups_;
}

bool Journal::endGroup()
{
    if (groups_ == 0) return false;
    --groups_;
    step();
    return true;
}

void Journal::mark()
{
    groups_ = 0;
    begin(closeStep() + 1);
}

void Journal::saveRecord(Index index)
{
    Drawing::Slot& slot = drawing_.slot(index);
    slot.step = drawing_.step_;
    done_.back().records.emplace_back(index, RecordState(slot));
}

void Journal::saveTable(std::size_t table)
{
    std::unique_ptr<SymbolTable>& saved = done_.back().tables[table];
    if (saved == nullptr) saved = std::make_unique<SymbolTable>(drawing_.tables_[table]);
}

void Journal::headerChanges()
{
    std::unique_ptr<HeaderVariables>& saved = done_.back().header;
    if (saved == nullptr) saved = std::make_unique<HeaderVariables>(drawing_.header);
}

void Journal::exchange(Step& step)
{
    const auto exchanged = [this](Index index) {
        if (drawing_.watching_) drawing_.remember(index);
    };
    for (auto& [index, state] : step.records) {
        exchanged(index);
        std::swap(static_cast<RecordState&>(drawing_.slot(index)), state);
    }
    const bool takesBack = step.made.empty();
    for (Index index = step.firstNew; index < step.endNew; ++index) {
        exchanged(index);
        RecordState& slot = drawing_.slot(index);
        if (takesBack) {
            RecordState gone; // has the handle, so that nobody else gets it in this session
            gone.record = Record(slot.record.kind(), slot.record.family());
            gone.record.handle = slot.record.handle;
            gone.record.erased = gone.record.undone = true;
            step.made.push_back(std::exchange(slot, std::move(gone)));
        } else {
            slot = std::move(step.made[index - step.firstNew]);
        }
    }
    if (!takesBack) step.made.clear();
    for (std::size_t i = 0; i < step.tables.size(); ++i)
        if (step.tables[i] != nullptr) std::swap(drawing_.tables_[i], *step.tables[i]);
    if (step.header != nullptr) drawing_.header.swapValues(*step.header);
    std::swap(drawing_.nextHandle_, step.nextHandle);
    std::swap(drawing_.root_, step.root);
    drawing_.livingEnds_.forget();
    ++drawing_.changes_;
}

int Journal::takeBackLast()
{
    Step step = std::move(done_.back());
    done_.pop_back();
    exchange(step);
    step.undoneBy = undos_;
    const int marks = std::exchange(step.marks, 0);
    undone_.push_back(std::move(step));
    return marks;
}

std::size_t Journal::undo(std::size_t count)
{
    groups_ = 0;
    ++undos_;
    int marks = closeStep();
    std::size_t taken = 0;
    for (; taken < count && !done_.empty(); ++taken) marks = takeBackLast();
    begin(marks);
    return taken;
}

bool Journal::hasMark() const
{
    return std::ranges::any_of(done_, [](const Step& step) { return step.marks != 0; });
}

void Journal::back()
{
    groups_ = 0;
    ++undos_;
    int marks = closeStep();
    while (marks == 0 && !done_.empty()) marks = takeBackLast();
    begin(std::max(marks - 1, 0));
}

bool Journal::redo()
{
    if (undone_.empty() || !isUnchanged()) return false;
    int marks = closeStep();
    const std::size_t undo = undone_.back().undoneBy;
    while (!undone_.empty() && undone_.back().undoneBy == undo) {
        Step step = std::move(undone_.back());
        undone_.pop_back();
        exchange(step);
        step.marks = std::exchange(marks, 0);
        done_.push_back(std::move(step));
    }
    begin(0);
    return true;
}

} // namespace orvald::drawing
