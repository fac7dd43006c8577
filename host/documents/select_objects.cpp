// SPDX-License-Identifier: LicenseRef-ORVALD
#include "select_objects.h"

#include "commands/object_chooser.h"
#include "document.h"
#include "prompt.h"
#include "typed_values.h"

namespace orvald {

using drawing::Index;
using drawing::ObjectId;

std::vector<ObjectId> askObjects(lisp::World& world, const std::function<bool(ObjectId)>& fits,
                                 bool single)
{
    Document& document = Document::of(world);
    const drawing::Drawing& drawing = document.drawing();
    ObjectChooser chooser(document, [&](Index entity) { return fits(drawing.idOf(entity)); });
    for (;;) {
        Token token;
        token.text = trimmed(askLine(world, chooser.prompt()));
        const Taken taken = chooser.take(token);
        if (taken == Taken::refused) {
            complain(u"A point, a window, Last, ALL, 'HANDLE or another word is wanted.");
        }
        if (taken == Taken::done || (single && !chooser.chosen().empty())) break;
    }
    std::vector<ObjectId> ids;
    for (const Index entity : chooser.chosen()) ids.push_back(drawing.idOf(entity));
    return ids;
}

} // namespace orvald
