// SPDX-License-Identifier: LicenseRef-ORVALD
// The user's desktop: boxes, windows and the table of running objects. Windows alone has this; what
// the headless host has in its place stands in hostapi/headless.h. Texts are UTF-8, a window is its
// handle, borrowed.
#pragma once

#include "kex/export.h"

#include <memory>
#include <string>

namespace kexos {

/// A question with the buttons OK and Cancel, before all windows of this program. True for OK.
KEX_BASE_API bool askOkCancel(const std::string& caption, const std::string& text);
/// The window of this program that has the focus; null when another program has it.
KEX_BASE_API void* focusWindow();
/// A box keeps the user from this window.
KEX_BASE_API bool isBarred(void* window);

/// What other programs reach through the method SendData of an automation object.
class DataReceiver
{
public:
    virtual int sendData(const std::string& name, int code, const std::string& text) = 0;

protected:
    ~DataReceiver() = default;
};

/// An automation object with the one method SendData (a text, a 32-bit integer, a text; a 32-bit
/// integer comes back), in the table of running objects from `enter` to `leave`. By the program's
/// name others find it where that is installed with the class. On one thread, with its messages.
class KEX_BASE_API RunningObject
{
public:
    /// The receiver stays the caller's.
    explicit RunningObject(DataReceiver& receiver);
    RunningObject(const RunningObject&) = delete;
    RunningObject& operator=(const RunningObject&) = delete;
    ~RunningObject();

    /// `classId` as in "{81F80D0F-...}". False when the system refuses.
    bool enter(const std::string& classId);
    /// Nobody calls the receiver after this.
    void leave();

private:
    class Dispatch;
    std::unique_ptr<Dispatch> dispatch_;
    unsigned long cookie_ = 0; // 0: not entered
};

} // namespace kexos
