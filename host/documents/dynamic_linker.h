// SPDX-License-Identifier: LicenseRef-ORVALD
// Loads and unloads modules and sends the application messages in the host's order:
// load 1, then 3 for each open document; close 4; save 9; unload 4 for each document, then 2.
#pragma once

#include "application.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvald {

class Document;

class DynamicLinker final : public AcRxDynamicLinker
{
public:
    bool loadModule(const ACHAR* file, bool print, bool asCommand) override;
    bool unloadModule(const ACHAR* file, bool asCommand) override;
    bool unlockApplication(void* packet) override;

    /// Why the last load or unload failed, one line; empty after a success.
    const std::string& reason() const { return reason_; }

    const std::vector<std::unique_ptr<Application>>& applications() const { return applications_; }
    Application* find(std::string_view file) const;
    /// Sends a message to every loaded module that handles documents, in order of loading or the
    /// reverse, each with `document` current.
    void broadcast(AcRx::AppMsgCode message, Document& document, bool reversed = false);
    /// Unloads everything, last loaded first.
    void unloadAll();

private:
    bool load(const std::string& path);
    bool unload(Application& application);
    void drop(Application& application);

    std::vector<std::unique_ptr<Application>> applications_; // in order of loading
    std::string reason_;
};

} // namespace orvald
