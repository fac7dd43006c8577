// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items, keys and directories: against a plain model, through LISP, and to any depth and size.
#include "kex_values.h"
#include "random_tree.h"
#include "test_host.h"

#include "kexdata/data_dir.h"

#include <chrono>
#include <map>

namespace {

using kextest::lispText;
using kextest::Random;

/// Reads the LISP text of the tests: texts, numbers, nil, T, lists and pairs. A list of two or
/// three reals becomes a point node, as the host sends it.
class TestReader
{
public:
    explicit TestReader(std::string_view text) : text_(text) {}
    KEX::CSmartResbuf read(bool dotInMiddle)
    {
        while (skipBlanks()) value();
        KEX::CSmartResbuf chain = builder_.take();
        EXPECT_TRUE(KEX::rbDotConvert(chain, dotInMiddle));
        return chain;
    }

private:
    bool skipBlanks()
    {
        while (at_ < text_.size() && text_[at_] == ' ') ++at_;
        return at_ < text_.size();
    }
    void value()
    {
        if (text_[at_] == '(') return list();
        if (text_[at_] == '"') {
            const std::size_t end = text_.find('"', at_ + 1);
            builder_.text(CKexString::fromUtf8(text_.substr(at_ + 1, end - at_ - 1)));
            at_ = end + 1;
            return;
        }
        const std::size_t end = std::min(text_.find_first_of(" ()", at_), text_.size());
        const std::string word(text_.substr(at_, end - at_));
        at_ = end;
        if (word == "nil") builder_.nil();
        else if (word == "T") builder_.t();
        else if (word.find('.') == std::string::npos) builder_.integer(std::stoi(word));
        else builder_.real(std::stod(word));
    }
    void list()
    {
        ++at_;
        builder_.begin();
        bool dotted = false;
        while (skipBlanks() && text_[at_] != ')') {
            if (text_.substr(at_, 2) == ". ") {
                dotted = true;
                ++at_;
                skipBlanks();
            }
            value();
        }
        ++at_;
        if (dotted) builder_.endDotted();
        else builder_.end();
    }

    std::string_view text_;
    std::size_t at_ = 0;
    KEX::RbBuilder builder_;
};

std::unique_ptr<CKexDataItem> itemOf(const char* text, bool dotInMiddle = false)
{
    const KEX::CSmartResbuf chain = TestReader(text).read(dotInMiddle);
    const resbuf* rb = chain;
    return CKexDataItem::fromRb(rb);
}

struct LispCase
{
    const char* text;
    bool directory;
    const char* comesBackAs; // null: as it is
};
const LispCase kLispCases[] = {
    {"nil", false, ""},
    {"T", false, nullptr},
    {"-70000", false, nullptr},
    {R"("Länge, mehr als sieben")", false, nullptr},
    {"(1 2 3)", false, nullptr},
    {"(1.0 2.0 3.0)", false, nullptr},
    {"(1.0 2.0)", false, nullptr},
    {"(1.0)", false, nullptr},
    {R"((("a" . 1)))", true, nullptr},
    {R"((("a" 1 2) ("b")))", true, nullptr},
    {R"((("a" ("b" ("c" . T)) ("d" . 2.5))))", true, nullptr},
    {R"((("P" 1.0 2.0 3.0) ("Q" 1.0 2.0)))", true, nullptr},
    {R"((("a" . 1) (2 3 4)))", true, nullptr},
    {R"(((1 . 2) (3 4)))", true, nullptr},
    {R"(((1 2) (3 4)))", false, nullptr},         // neither text nor pair: a list
    {R"((("a" . 1) ("A" . 2)))", false, nullptr}, // a key twice
    {R"((("a" . 1) 2))", false, nullptr},
    {R"((("a" . 1) (2.5 3)))", false, nullptr},
    {R"((("a" . 1) nil))", false, nullptr},
    {R"((("a" . 1) . 2))", false, nullptr}, // a dotted list is no directory
    {R"((("a" nil) ("b" (1 2)) ("c" ((1 2)))))", true, nullptr},
    {R"((("a" 1 2 . 3)))", true, nullptr},
    {R"(("a" . 1))", false, nullptr}, // one pair is no list of pairs
    {R"(("x" ("a" . 1)))", false, nullptr},
    {R"((("a" . nil)))", true, R"((("a")))"},
    {R"((("a" . (1 2))))", true, R"((("a" 1 2)))"},
    {R"((1 . (2 . (3 . 4))))", false, "(1 2 3 . 4)"},
    {R"((1.0 . (2.0 . (3.0))))", false, "(1.0 2.0 3.0)"},
    {R"((1 . nil))", false, "(1)"},
    {R"((1 () (())))", false, "(1 nil (nil))"},
    {R"((("a" . ((1.0 2.0 3.0) . (2)))))", true, R"((("a" (1.0 2.0 3.0) 2)))"},
};

TEST(LispForm, IsReadByTheRuleForDirectoriesAndComesBack)
{
    for (const LispCase& test : kLispCases) {
        for (const bool dotInMiddle : {false, true}) {
            SCOPED_TRACE(std::string(test.text) + (dotInMiddle ? " dot in the middle" : ""));
            const auto item = itemOf(test.text, dotInMiddle);
            ASSERT_NE(item, nullptr);
            EXPECT_EQ(item->isDir(), test.directory);
            EXPECT_EQ(lispText(item->mkLisp()),
                      test.comesBackAs == nullptr ? test.text : test.comesBackAs);
        }
    }
}

TEST(LispForm, ReadsOneValueAndStandsBehindIt)
{
    const KEX::CSmartResbuf chain = TestReader(R"(1 (("a" . (2))) "x")").read(true);
    const resbuf* rb = chain;
    EXPECT_EQ(lispText(CKexDataItem::fromRb(rb)->mkLisp()), "1");
    EXPECT_EQ(lispText(CKexDataItem::fromRb(rb)->mkLisp()), R"((("a" 2)))");
    EXPECT_EQ(lispText(CKexDataItem::fromRb(rb)->mkLisp()), R"("x")");
    EXPECT_EQ(rb, nullptr);
    EXPECT_EQ(CKexDataItem::fromRb(rb), nullptr);
    // What cannot be stored is refused, and the place kept.
    const std::int32_t set[2] = {1, 1};
    for (const KEX::CSmartResbuf& bad :
         {KEX::CSmartResbuf(acutBuildList(RTPICKS, set, RTNONE)),
          KEX::CSmartResbuf(acutBuildList(RTLB, RTPICKS, set, RTLE, RTNONE)),
          KEX::CSmartResbuf(acutBuildList(RTLB, RTLB, RTLE, RTNONE)),
          KEX::CSmartResbuf(acutBuildList(8, KT("layer"), RTNONE))}) {
        const resbuf* place = bad;
        EXPECT_EQ(CKexDataItem::fromRb(place), nullptr);
        EXPECT_EQ(place, bad.get());
    }
}

TEST(LispForm, ValidatesEntityReferences)
{
    testHost().entities = {7};
    const std::int32_t living[2] = {7, 0}, erased[2] = {8, 0};
    CKexDataItem item = CKexDataItem::directory();
    item.put(KT("a"), CKexDataItem(KEX::CAdsName(living)));
    item.put(KT("b"), CKexDataItem(KEX::CAdsName(erased)));
    CKexDataDir::setRbValidate(KEX::chk_ent);
    EXPECT_EQ(lispText(item.mkLisp()), R"((("a" . (handent "7")) ("b" . nil)))");
    CKexDataDir::setRbValidate(nullptr);
    KEX::CAdsName name;
    EXPECT_TRUE(item.get(name, KT("b"))); // it stays stored
    EXPECT_EQ(name, KEX::CAdsName(erased));
    testHost().entities.clear();
}

TEST(LispForm, RandomTreesComeBack)
{
    Random random(11);
    for (int round = 0; round < 150; ++round) {
        const CKexDataItem tree = kextest::randomTree(random, kextest::Values::lisp);
        KEX::CSmartResbuf chain = tree.mkLisp();
        ASSERT_TRUE(KEX::rbBalanced(chain));
        if (round % 2 == 0) KEX::rbDotConvert(chain, true);
        const resbuf* rb = chain;
        const auto back =
            rb == nullptr ? std::make_unique<CKexDataItem>() : CKexDataItem::fromRb(rb);
        ASSERT_NE(back, nullptr);
        ASSERT_EQ(lispText(back->mkLisp()), lispText(tree.mkLisp()));
    }
}

TEST(Keys, AreCutAtBackslashesAndComparedWithoutCase)
{
    EXPECT_EQ(CKexDataKey(KT("\\PARM2\\\\TYPE\\")).length(), 2);
    EXPECT_EQ(CKexDataKey(KT("parm2\\Type")), CKexDataKey(KT("PARM2\\TYPE")));
    EXPECT_TRUE(CKexDataKey(KT("")).isEmpty());
    CKexDataKey key;
    key.set(RTSTR, KT("A\\B"), RTLONG, 5, 0);
    ASSERT_EQ(key.length(), 2);
    EXPECT_EQ(key[0].text(), KT("A\\B"));
    EXPECT_EQ(key[1].type(), RTLONG);
    EXPECT_FALSE(KEX::DataKeyView(5) == KEX::DataKeyView(KT("5")));
    EXPECT_TRUE(KEX::DataKeyView(5) < KEX::DataKeyView(KT("")));
    EXPECT_TRUE(KEX::DataKeyView(-5) < KEX::DataKeyView(4));

    struct Case
    {
        const char *text, *components; // null: no key
    };
    for (const auto& [text, components] : {Case{R"("a\b")", R"(("a" "b"))"},
                                           {R"("a")", R"("a")"},
                                           {"7", "7"},
                                           {R"(("a\b" 7))", R"(("a" "b" 7))"},
                                           {"nil", "nil"},
                                           {"(7)", "7"},
                                           {"1.5", nullptr},
                                           {"(1.0 2.0)", nullptr},
                                           {"((1))", nullptr},
                                           {"T", nullptr}}) {
        const KEX::CSmartResbuf chain = TestReader(text).read(false);
        const resbuf* rb = chain;
        CKexDataKey read(KT("kept"));
        const bool isKey = KEX::dataKeyFromRb(read, rb);
        EXPECT_EQ(isKey, components != nullptr) << text;
        KEX::RbBuilder builder;
        KEX::rbPut(builder, read);
        EXPECT_EQ(lispText(builder.take()), isKey ? components : "\"kept\"");
        EXPECT_EQ(rb == nullptr, isKey);
    }
}

TEST(Directory, BehavesLikeAMapThatKeepsItsOrder)
{
    for (const int keys : {6, 40, 3000}) {
        Random random(static_cast<unsigned>(keys));
        CKexDataDir dir;
        std::map<std::string, int> model; // by capitals
        std::vector<std::string> order;
        for (int step = 0; step < 20000; ++step) {
            const int number = random.below(keys);
            const bool isText = number % 3 != 0;
            const std::string name = "Key" + std::to_string(number);
            CKexString spelling = CKexString::fromUtf8(name);
            if (random.below(2) == 0) spelling.makeUpper();
            const KEX::DataKeyView key =
                isText ? KEX::DataKeyView(spelling) : KEX::DataKeyView(number);
            const bool had = model.count(name) != 0;
            if (random.below(5) < 3) {
                dir.makeChild(key) = CKexDataItem(step);
                model[name] = step;
                if (!had) order.push_back(name);
            } else {
                ASSERT_EQ(dir.removeChild(key), had);
                model.erase(name);
                std::erase(order, name);
            }
            ASSERT_EQ(dir.length(), static_cast<int>(model.size()));
        }
        std::size_t at = 0;
        for (const auto child : dir) {
            const std::string name = child.key.isText()
                                         ? KEX::toUtf8(child.key.text())
                                         : "Key" + std::to_string(child.key.number());
            ASSERT_LT(at, order.size());
            ASSERT_TRUE(
                KEX::equalNoCase(CKexString::fromUtf8(name), CKexString::fromUtf8(order[at])));
            int value = -1;
            ASSERT_TRUE(child.item.get(value));
            ASSERT_EQ(value, model[order[at]]);
            ++at;
        }
        ASSERT_EQ(at, order.size());
    }
}

TEST(Directory, KeepsTheFirstSpellingAndSortsByCapitals)
{
    CKexDataDir dir;
    for (const ACHAR* key : {KT("b"), KT("_x"), KT("Ä"), KT("a")}) dir.makeChild(key);
    dir.makeChild(3);
    dir.makeChild(-1);
    dir.makeChild(KT("B")) = CKexDataItem(1);
    std::string stored, sorted;
    for (const CKexDataKey& key : dir.keys())
        stored += key[0].isText() ? key[0].text().toUtf8() : "#";
    for (const CKexDataKey& key : dir.keys(true))
        sorted += key[0].isText() ? key[0].text().toUtf8() : "#";
    EXPECT_EQ(stored, "b_xÄa##");
    EXPECT_EQ(sorted, "##ab_xÄ");
}

TEST(Directory, ChildrenStayWhereTheyAre)
{
    CKexDataDir dir;
    CKexDataItem* const first = &dir.makeChild(KT("first"));
    for (int i = 0; i < 10000; ++i) dir.makeChild(i);
    EXPECT_EQ(dir.child(KT("FIRST")), first);
}

TEST(Item, GoesByPath)
{
    CKexDataItem item;
    EXPECT_TRUE(item.put(KT("A\\B"), CKexDataItem(1)));
    EXPECT_TRUE(item.put(KT("A\\C"), CKexDataItem(KT("text"))));
    EXPECT_FALSE(item.put(KT("A\\B\\C"), CKexDataItem(2))); // a value stands on the way
    int whole = 0;
    double real = 0;
    CKexString text = KT("kept");
    EXPECT_TRUE(item.get(whole, KT("a\\b")));
    EXPECT_TRUE(item.get(real, KT("a\\b"))); // an integer counts as a real
    EXPECT_EQ(real, 1.0);
    EXPECT_FALSE(item.get(text, KT("a\\b")));
    EXPECT_EQ(text, KT("kept"));
    EXPECT_FALSE(item.get(whole, KT("a\\b\\c")));
    EXPECT_EQ(item.find(KT("x")), nullptr);
    EXPECT_EQ(item.find(CKexDataKey()), &item);
    EXPECT_TRUE(item.getDir()->set(KT("D\\E"), std::make_unique<CKexDataItem>(3)));
    EXPECT_FALSE(item.getDir()->set(KT("F\\E"), CKexDataItem(3), false));
    EXPECT_EQ(item.find(KT("F")), nullptr);
    EXPECT_TRUE(item.getDir()->set(KT("D\\E"), std::unique_ptr<CKexDataItem>()));
    EXPECT_EQ(item.getKeyList().length(), 2);
    EXPECT_TRUE(item.remove(KT("A\\B")));
    EXPECT_FALSE(item.remove(KT("A\\B")));
    EXPECT_FALSE(CKexDataItem(1).put(KT("A"), CKexDataItem(2)));
    EXPECT_THROW(CKexDataItem::list({CKexDataItem::directory()}), CKexString);
    EXPECT_THROW(CKexDataItem::list({CKexDataItem(1)}, true), CKexString);
}

TEST(Item, CopiesAreEqualAndIndependent)
{
    Random random(12);
    for (int round = 0; round < 100; ++round) {
        const CKexDataItem tree = kextest::randomTree(random, kextest::Values::all);
        CKexDataItem copy = tree;
        ASSERT_EQ(copy, tree);
        const CKexDataItem moved = std::move(copy);
        ASSERT_EQ(moved, tree);
        copy = moved;
        copy.mkDir().makeChild(KT("one more")) = CKexDataItem(1);
        ASSERT_FALSE(copy == tree);
    }
    for (const auto& [a, b] : {std::pair(CKexDataItem(1), CKexDataItem(1.0)),
                               {CKexDataItem(KT("a")), CKexDataItem(KT("A"))},
                               {CKexDataItem::point2d(1, 2), CKexDataItem(CKexPoint3d(1, 2))},
                               {CKexDataItem(), CKexDataItem(true)}}) {
        EXPECT_FALSE(a == b);
    }
}

TEST(Item, NestsToAnyDepth)
{
    constexpr int kDepth = 300000;
    CKexDataItem tree;
    CKexDataItem* at = &tree;
    for (int i = 0; i < kDepth; ++i) at = &at->mkDir().makeChild(KT("k"));
    *at = CKexDataItem(5);
    const CKexDataItem copy = tree;
    EXPECT_TRUE(copy == tree);
    const KEX::CSmartResbuf chain = tree.mkLisp();
    const resbuf* rb = chain;
    const auto back = CKexDataItem::fromRb(rb);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(*back == tree);

    KEX::RbBuilder builder; // (1 . (1 . (1 ...)))
    for (int i = 0; i < kDepth; ++i) builder.begin().integer(1);
    builder.integer(2);
    for (int i = 0; i < kDepth; ++i) builder.endDotted();
    const KEX::CSmartResbuf pairs = builder.take();
    rb = pairs;
    const auto list = CKexDataItem::fromRb(rb);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->kind(), CKexDataItem::Kind::dottedList);
    EXPECT_EQ(list->listValues().size(), kDepth + 1u);
}

TEST(Item, HoldsAMillionChildren)
{
    constexpr int kChildren = 1000000;
    const auto start = std::chrono::steady_clock::now();
    CKexDataDir dir;
    for (int i = 0; i < kChildren; ++i)
        dir.makeChild(KEX::format(KT("Key{}"), i)) = CKexDataItem(i);
    int value = 0;
    for (int i = 0; i < kChildren; i += 7) {
        ASSERT_TRUE(dir.child(KEX::format(KT("KEY{}"), i))->get(value));
        ASSERT_EQ(value, i);
    }
    for (int i = 0; i < kChildren; ++i) ASSERT_TRUE(dir.removeChild(KEX::format(KT("key{}"), i)));
    EXPECT_TRUE(dir.isEmpty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)); // not quadratic
}

} // namespace
