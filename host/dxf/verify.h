// SPDX-License-Identifier: LicenseRef-ORVALD
// Comparing a written text with the drawing that it was made from, record by record.
#pragma once

#include "parser.h"
#include "writer.h"

namespace orvald::dxf {

class Verifier : public Handler
{
public:
    Verifier(const drawing::Drawing& drawing, bool anyLeft) : drawing_(drawing), anyLeft_(anyLeft)
    {
    }

    void variable(std::string_view name, const drawing::TagList& value) override;
    void classRow(drawing::TagList&& row) override;
    void record(Section section, drawing::Record&& record, std::uint64_t line) override;
    void rawSection(std::string_view name, std::string&& text) override;
    void warn(std::uint64_t line, std::string text) override;

    std::size_t count() const { return count_; }

private:
    const drawing::Drawing& drawing_;
    bool anyLeft_;
    std::size_t count_ = 0, classes_ = 0, sections_ = 0;
};

} // namespace orvald::dxf
