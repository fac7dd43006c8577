// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/environment.h"

#include "kexos/paths.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace kexos {
namespace {

/// The first of these variables that is set and not empty.
std::string firstSet(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const std::optional<std::string> value = environment(name);
        if (value.has_value() && !value->empty()) return *value;
    }
    return std::string();
}

/// HOME, else what the system's list of users says.
std::string userFolder()
{
    std::string folder = firstSet({"HOME"});
    const passwd* user = folder.empty() ? ::getpwuid(::getuid()) : nullptr;
    if (user != nullptr) folder = user->pw_dir;
    return folder;
}

std::string withoutSeparator(std::string folder)
{
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

} // namespace

std::optional<std::string> environment(const std::string& name)
{
    const char* value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    return std::string(value);
}

bool setEnvironment(const std::string& name, const std::string& value)
{
    return ::setenv(name.c_str(), value.c_str(), 1) == 0;
}

std::string homeFolder()
{
    if (const std::string own = firstSet({"KEX_HOME"}); !own.empty()) {
        return kernelPath(withoutSeparator(nativePath(own)));
    }
    if (const std::string settings = firstSet({"XDG_CONFIG_HOME"}); !settings.empty()) {
        return kernelPath(withoutSeparator(settings) + "/orvald");
    }
    return kernelPath(withoutSeparator(userFolder()) + "/.config/orvald");
}

std::string tempFolder()
{
    const std::string folder = firstSet({"TMP", "TEMP", "TMPDIR"});
    return kernelPath(folder.empty() ? "/tmp" : withoutSeparator(nativePath(folder)));
}

int processId() { return static_cast<int>(::getpid()); }

} // namespace kexos
