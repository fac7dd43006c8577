// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/file_list.h"

#include "kex/path_names.h"
#include "kexos/file_status.h"
#include "kexos/folders.h"

#include <algorithm>
#include <vector>

namespace KEX {
namespace {

constexpr std::uint32_t kAttributes =
    kFileReadOnly | kFileHidden | kFileSystem | kFileFolder | kFileArchive;
constexpr std::uint32_t kOnlyWhenAsked = kFileHidden | kFileSystem | kFileFolder;

int sortKey = 0;
int sortDirection = 0;

/// What an order looks at. The name in capitals: the order of names without regard to case.
struct SortView
{
    TextView upper;
    std::int64_t written; // seconds
    std::uint32_t size;
};

int sign(auto a, auto b) { return a < b ? -1 : a > b ? 1 : 0; }

int compareText(TextView a, TextView b) { return sign(a.compare(b), 0); }

/// By units, with "." as 0: a name comes before the longer ones that begin with it, and its
/// extension does not count before theirs.
int compareDotted(TextView a, TextView b)
{
    const auto unitAt = [](TextView text, std::size_t i) {
        return i < text.size() && text[i] != KT('.') ? text[i] : ACHAR(0);
    };
    const std::size_t end = std::max(a.size(), b.size());
    for (std::size_t i = 0; i < end; ++i) {
        if (const int order = sign(unitAt(a, i), unitAt(b, i)); order != 0) return order;
    }
    return 0;
}

TextView extensionOf(TextView name)
{
    const std::size_t dot = name.rfind(KT('.'));
    return dot == TextView::npos ? TextView() : TextView(name.substr(dot));
}

int orElse(int order, int further) { return order != 0 ? order : further; }

int compareByKey(const SortView& a, const SortView& b)
{
    const auto low = [](std::int64_t seconds) { return static_cast<std::uint32_t>(seconds); };
    switch (sortKey) {
    case kDirByName: return compareDotted(b.upper, a.upper);
    // kept: the only key that is not turned round, so that its direction is the other one
    case kDirByExtension:
        return orElse(compareText(extensionOf(a.upper), extensionOf(b.upper)),
                      compareText(a.upper, b.upper));
    case kDirBySize: return orElse(sign(b.size, a.size), compareText(b.upper, a.upper));
    case kDirByTime:
        return orElse(sign(low(b.written), low(a.written)), compareDotted(b.upper, a.upper));
    default: return 0;
    }
}

int compareEntries(const SortView& a, const SortView& b)
{
    return sortDirection != 0 ? compareByKey(a, b) : compareByKey(b, a);
}

/// Text in capitals against a pattern in capitals. The last "*" takes one unit more whenever the
/// rest does not match, so the time is at most the product of the lengths.
bool matches(TextView text, TextView pattern)
{
    std::size_t at = 0, in = 0;
    std::size_t star = TextView::npos, taken = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == KT('*')) {
            star = in++;
            taken = at;
        } else if (in < pattern.size() && (pattern[in] == KT('?') || pattern[in] == text[at])) {
            ++at;
            ++in;
        } else if (star != TextView::npos) {
            in = star + 1;
            at = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(KT('*'), in) == TextView::npos;
}

/// A pattern cut into the folder and the wildcards in capitals.
struct Pattern
{
    explicit Pattern(TextView text)
    {
        const PathParts parts = splitPath(text);
        folder = parts.drive + parts.folder;
        if (folder.isNull()) folder = KT(".");
        wildcards = (parts.name + parts.extension).makeUpper();
        all = wildcards.isNull() || wildcards == KT("*.*");
    }
    bool takes(TextView upper) const { return all || matches(upper, wildcards); }

    CKexString folder;
    CKexString wildcards;
    bool all;
};

struct Listed
{
    CKexString name, upper;
    kexos::FileStatus status;

    SortView sortView() const { return {upper, status.writtenSeconds(), status.lowSize()}; }
};

std::vector<Listed> listMatching(const Pattern& pattern, kexos::FindDetail detail)
{
    std::vector<kexos::FoundFile> found;
    kexos::listFolder(pattern.folder.toUtf8(), detail, found);
    std::vector<Listed> list;
    list.reserve(found.size());
    for (const kexos::FoundFile& file : found) {
        const CKexString name = CKexString::fromUtf8(file.name);
        CKexString upper = CKexString(name).makeUpper();
        if (pattern.takes(upper)) list.push_back({name, std::move(upper), file.status});
    }
    return list;
}

bool isWanted(std::uint32_t attributes, int mask)
{
    const std::uint32_t asked = static_cast<std::uint32_t>(mask) & kAttributes;
    if ((attributes & kOnlyWhenAsked & ~asked) != 0) return false;
    return (mask & kFileOnly) == 0 || (attributes & asked) == asked;
}

} // namespace

CKexArrayTempl<CKexString> fileDir(TextView pattern, int mask)
{
    const bool restricts = (mask & kFileOnly) != 0 && (mask & kFileReadOnly) != 0;
    const bool needsAll = restricts || sortKey == kDirBySize || sortKey == kDirByTime;
    std::vector<Listed> list = listMatching(Pattern(pattern), needsAll ? kexos::FindDetail::full
                                                                       : kexos::FindDetail::kind);
    std::erase_if(list, [&](const Listed& one) { return !isWanted(one.status.attributes, mask); });
    std::ranges::sort(list, [](const Listed& a, const Listed& b) {
        const int order = a.upper.compare(b.upper);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    if (sortKey >= kDirByName && sortKey <= kDirByTime) {
        std::ranges::stable_sort(list, [](const Listed& a, const Listed& b) {
            return compareEntries(a.sortView(), b.sortView()) < 0;
        });
    }
    CKexArrayTempl<CKexString> names;
    names.reserve(static_cast<int>(list.size()));
    for (Listed& one : list) names.append(std::move(one.name));
    return names;
}

void dirModeSet(int key, std::optional<int> direction)
{
    sortKey = key;
    sortDirection = direction.value_or(sortDirection);
}

FolderSums folderSums(TextView folder, TextView pattern)
{
    FolderSums sums = {};
    CKexString path = folder;
    if (!path.isNull() && !path.endsWith(KT("\\"))) path += KT('\\');
    std::uint32_t size = 0;
    for (const Listed& one : listMatching(Pattern(path + pattern), kexos::FindDetail::full)) {
        if (one.status.isFolder()) continue;
        ++sums.count;
        size += one.status.lowSize();
    }
    sums.size = static_cast<std::int32_t>(size); // kept: 32 bits with a sign
    // kept: the first unit is taken as the drive's letter, whatever the folder begins with
    const CKexString root = path.mid(0, 1) + KT(":\\");
    if (const std::optional<kexos::DiskSpace> disk = kexos::diskSpace(root.toUtf8())) {
        sums.free =
            static_cast<std::uint32_t>(disk->free); // kept: the low 32 bits, as is the total
        sums.total = static_cast<std::uint32_t>(disk->total);
    }
    return sums;
}

void clearReadOnly(TextView folder)
{
    std::vector<std::string> left = {toUtf8(folder)};
    std::vector<kexos::FoundFile> found;
    while (!left.empty()) {
        std::string path = std::move(left.back());
        left.pop_back();
        if (!path.ends_with('\\')) path += '\\';
        found.clear();
        kexos::listFolder(path, kexos::FindDetail::full, found);
        for (const auto& [name, status] : found) {
            const bool elsewhere = (status.attributes & (kexos::kHidden | kexos::kLink)) != 0;
            if (!status.isFolder()) {
                if (status.isReadOnly()) kexos::makeWritable(path + name);
            } else if (!elsewhere && !name.starts_with('.')) {
                left.push_back(path + name);
            }
        }
    }
}

} // namespace KEX

int dir_cmp(const void* a, const void* b)
{
    const auto nameOf = [](const KEX::DirEntry& entry) {
        const ACHAR* const end = std::find(entry.name, std::end(entry.name), ACHAR(0));
        return CKexString(KEX::TextView(entry.name, static_cast<std::size_t>(end - entry.name)))
            .makeUpper();
    };
    const auto& first = *static_cast<const KEX::DirEntry*>(a);
    const auto& second = *static_cast<const KEX::DirEntry*>(b);
    const CKexString firstName = nameOf(first), secondName = nameOf(second);
    return KEX::compareEntries({firstName, first.written, first.size},
                               {secondName, second.written, second.size});
}
