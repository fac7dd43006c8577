// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items in a drawing: a tree of 1,000 keys (texts, reals, integers in ten directories) on each
// of N objects, N 1,000 or the first argument. Millions of keys a second for writing (to new
// records, and over old ones) and reading, memory of the process for each byte of payload (UTF-16
// of keys and texts, 8 a real, 4 an integer), the file both ways, and one key of a large item
// against the whole. Median of rounds, each with a drawing of its own.
#include "bench_session.h"
#include "hostapi/documents.h"
#include "hostapi/entity.h"
#include "kex/format.h"
#include "kexdata/data_dir.h"
#include "kexobj/item_form.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"

#include <chrono>
#include <malloc.h>

namespace {

using Clock = std::chrono::steady_clock;
using KEX::OpenObject;

constexpr int kDirectories = 10;
constexpr int kRounds = 3;
constexpr int kLargeKeys = 100'000;

template <class Work>
double secondsOf(Work&& work)
{
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

struct Tree
{
    CKexDataItem item = CKexDataItem::directory();
    std::size_t payload = 0; // bytes
    int keys = 0;
};

Tree treeOf(int keys, int seed)
{
    Tree tree;
    const auto add = [&](const CKexString& directory, const CKexString& name, CKexDataItem value) {
        CKexDataKey key;
        key.append(directory);
        key.append(name);
        tree.payload += 2 * static_cast<std::size_t>(name.len());
        ++tree.keys;
        tree.item.put(key, std::move(value));
    };
    for (int i = 0; i < keys; ++i) {
        const CKexString directory = KEX::format(KT("PART_{}"), i * kDirectories / keys);
        const CKexString name = KEX::format(KT("KEY_{}"), i);
        if (i % 3 == 0) {
            const CKexString text = KEX::format(KT("Abwicklung {}"), seed + i);
            tree.payload += 2 * static_cast<std::size_t>(text.len());
            add(directory, name, CKexDataItem(text));
        } else if (i % 3 == 1) {
            tree.payload += 8;
            add(directory, name, CKexDataItem((seed + i) / 7.0));
        } else {
            tree.payload += 4;
            add(directory, name, CKexDataItem(seed + i));
        }
    }
    return tree;
}

/// A session without modules whose drawing is locked for write.
class Sheet
{
public:
    Sheet() : session(withoutModules())
    {
        std::string problem;
        if (!session.newDrawing(problem)) kexbench::fail(problem);
        acDocManager->lockDocument(acDocManager->curDocument());
    }
    std::vector<AcDbObjectId> points(int count)
    {
        session.eval("(repeat " + std::to_string(count) +
                     " (entmake '((0 . \"POINT\") (10 1.0 2.0 3.0))))");
        return entities();
    }
    static std::vector<AcDbObjectId> entities()
    {
        std::vector<AcDbObjectId> ids;
        ads_name name = {};
        for (int found = acdbEntNext(nullptr, name); found == RTNORM;
             found = acdbEntNext(name, name)) {
            AcDbObjectId id;
            acdbGetObjectId(id, name);
            ids.push_back(id);
        }
        return ids;
    }

    orvald::Session session;

private:
    static orvald::SessionOptions withoutModules()
    {
        orvald::SessionOptions options;
        options.kernel.clear();
        options.quiet = true;
        return options;
    }
};

void write(const std::vector<AcDbObjectId>& ids, const CKexDataItem& item)
{
    for (const AcDbObjectId id : ids) {
        const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
        if (!object || !KEX::xrSet(*object, &item)) kexbench::fail("an item is not written");
    }
}

void read(const std::vector<AcDbObjectId>& ids, const CKexDataItem& wanted)
{
    for (const AcDbObjectId id : ids) {
        const auto item = KEX::xrGet(id);
        if (item == nullptr || item->getDir()->length() != wanted.getDir()->length())
            kexbench::fail("an item is not read");
    }
    if (*KEX::xrGet(ids.back()) != wanted) kexbench::fail("an item comes back changed");
}

void manyObjects(int objects)
{
    const Tree first = treeOf(1000, 0), second = treeOf(1000, 500);
    const double keys = static_cast<double>(first.keys) * objects;
    const kexbench::Place place("data_bench");
    const std::string file = (place.path() / "data.dxf").string();
    std::vector<double> fresh, over, reads, saves, opens, memory;
    for (int round = 0; round < kRounds; ++round) {
        Sheet sheet;
        const std::vector<AcDbObjectId> ids = sheet.points(objects);
        const std::size_t before = mallinfo2().uordblks;
        fresh.push_back(keys / secondsOf([&] { write(ids, first.item); }));
        const std::size_t used = mallinfo2().uordblks - before;
        memory.push_back(static_cast<double>(used) /
                         (static_cast<double>(first.payload) * objects));
        over.push_back(keys / secondsOf([&] { write(ids, second.item); }));
        reads.push_back(keys / secondsOf([&] { read(ids, second.item); }));
        std::string problem;
        saves.push_back(keys / secondsOf([&] { sheet.session.save(file, problem); }));
        opens.push_back(keys / secondsOf([&] { sheet.session.open(file, problem); }));
        if (!problem.empty()) kexbench::fail(problem);
        read({Sheet::entities().back()}, second.item);
    }
    const auto line = [](const char* what, std::vector<double> values) {
        std::printf("%-34s %7.2f million keys/s\n", what, kexbench::median(values) / 1e6);
    };
    std::printf("%d objects with %d keys\n", objects, first.keys);
    line("written to new records (xrSet)", fresh);
    line("written over (xrSet)", over);
    line("read (xrGet)", reads);
    line("saved as DXF", saves);
    line("opened from DXF", opens);
    std::printf("%-34s %7.2f x payload\n", "memory", kexbench::median(memory));
}

void oneKey()
{
    Sheet sheet;
    const AcDbObjectId id = sheet.points(1).back();
    const Tree large = treeOf(kLargeKeys, 0);
    write({id}, large.item);
    const CKexDataKey key(KEX::format(KT("PART_{}\\KEY_{}"), kDirectories - 1, kLargeKeys - 1));
    const KEX::CSmartResbuf groups = KEX::itemToGroups(large.item);
    std::vector<double> wholeGroups, keyGroups, wholeObject, keyObject;
    for (int round = 0; round < 2 * kRounds + 1; ++round) {
        std::unique_ptr<CKexDataItem> whole, part;
        wholeGroups.push_back(secondsOf([&] { whole = KEX::itemFromGroups(groups); }));
        keyGroups.push_back(secondsOf([&] { part = KEX::itemFromGroups(groups, key); }));
        if (!part || !whole || *part != *whole->find(key)) kexbench::fail("the key is wrong");
        wholeObject.push_back(secondsOf([&] { whole = KEX::xrGet(id); }));
        keyObject.push_back(secondsOf([&] { part = KEX::xrGet(id, key); }));
        if (!part || !whole || *part != *whole->find(key)) kexbench::fail("the key is wrong");
    }
    const auto line = [](const char* what, std::vector<double> all, std::vector<double> one) {
        const double a = kexbench::median(all) * 1e3, b = kexbench::median(one) * 1e3;
        std::printf("%-34s whole %7.2f ms   last key %7.2f ms %6.1f x\n", what, a, b, a / b);
    };
    std::printf("one item with %d keys\n", kLargeKeys);
    line("itemFromGroups", wholeGroups, keyGroups);
    line("xrGet", wholeObject, keyObject);
}

} // namespace

int main(int count, char** arguments)
{
    const int objects = count > 1 ? std::atoi(arguments[1]) : 1000;
    return orvald::runOnLispThread([=] {
        manyObjects(std::max(objects, 1));
        oneKey();
        return 0;
    });
}
