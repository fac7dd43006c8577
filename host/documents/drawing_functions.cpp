// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing_functions.h"

namespace orvald {

void defineDrawingFunctions(lisp::World& world)
{
    for (const auto& table :
         {entityFunctions(), selectionFunctions(), tableFunctions(), systemFunctions(),
          commandFunctions(), graphicsFunctions(), curveFunctions(), automationFunctions(),
          inputFunctions(), pickFunctions(), osnapFunctions(), registryFunctions(),
          propertyFunctions()}) {
        world.define(table);
    }
    world.setSymbol(u"PAUSE", world.makeString(u"\\")); // where a command waits for the user
}

} // namespace orvald
