// SPDX-License-Identifier: LicenseRef-ORVALD
// Saving what was loaded changes nothing, however often: the bytes of the second saving are those
// of the first, and after each loading every text and every double in memory is what it was.
#include "../host_drawing/chain_text.h"
#include "dxf_support.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace orvald;
using namespace orvald::dxf;
using namespace orvald::drawing;

namespace {

/// Loads what is loaded and saved again, several times over, and expects no change.
void expectFixedPoint(const Drawing& first)
{
    const std::string once = saveText(first);
    const Loaded loaded = loadText(once);
    ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
    for (const Warning& warning : loaded.warnings) ADD_FAILURE() << warning.text;
    const std::string twice = saveText(*loaded.drawing);
    ASSERT_EQ(twice, once);
    for (Index i = 0; i < first.recordCount(); ++i) {
        const Record& before = first.at(i);
        const Index at = loaded.drawing->byHandle(before.handle);
        ASSERT_NE(at, kNone);
        const Record& after = loaded.drawing->at(at);
        ASSERT_TRUE(before.kind() == Kind::table || after.tags == before.tags) << before.typeName();
        ASSERT_TRUE((before.extras() == nullptr ? TagList() : before.extras()->xdata) ==
                    (after.extras() == nullptr ? TagList() : after.extras()->xdata));
    }
}

/// What users, programs and damage put into texts; the generator joins them at random.
constexpr std::u16string_view kPieces[] = {
    u"^",      u"^ ",     u" ",         u"^J",     u"\n",
    u"\t",     u"\r",     u"\\",        u"\\U+",   u"\\U+00B0",
    u"\\u+00", u"00E4",   u"\\M+18140", u"U+D83D", u"%%c",
    u"%%%",    u"%%",     u"\\P",       u"\\~",    u"{\\H2x;",
    u"}",      u"\x00E4", u"\xD800",    u"\xDC00", u"\xD83D\xDE00",
    u"\xFFFD", u"\xFEFF", u"\xFFFF",    u"\x7F",   u"\x80",
    u"\x1A",   u"\x01",   u"\x2028",    u"",       u"  0",
    u"EOF",    u"\"",     u"x",         u"ENDSEC", u"\\U+D83D\\U+DE00"};

std::u16string nastyText(std::mt19937& random)
{
    std::u16string text;
    for (std::size_t i = random() % 8; i != 0; --i) {
        if (random() % 16 == 0) text += u'\0';
        text += kPieces[random() % std::size(kPieces)];
    }
    return text;
}

/// One drawing with these texts in every place that takes any text.
std::unique_ptr<Drawing> drawingOf(const std::vector<std::string>& forms)
{
    auto drawing = Drawing::createNew();
    const Index list = drawing->addDictionary(true);
    drawing->addToDictionary(drawing->rootDictionary(), "TEXTS", list);
    Record text(Kind::text, Family::entity), record(Kind::xrecord, Family::object);
    text.tags.addText(100, "AcDbEntity");
    text.tags.addText(8, "0");
    text.tags.addText(100, "AcDbText");
    record.tags.addText(100, "AcDbXrecord");
    text.needExtras().xdata.addText(1001, "ACAD");
    for (const std::string& form : forms) {
        text.tags.addText(1, form);
        text.needExtras().xdata.addText(1000, form);
        record.tags.addText(300, form);
        record.tags.addText(102, form);
        drawing->header.setText("$PROJECTNAME", 1, form);
    }
    drawing->appendChild(drawing->modelSpace(), drawing->add(std::move(text)));
    drawing->addToDictionary(list, "ALL", drawing->add(std::move(record)));
    for (const std::string& form : forms)
        if (drawing->dictionaryEntry(list, form) == kNone)
            drawing->addToDictionary(list, form, drawing->addDictionary(false));
    return drawing;
}

} // namespace

TEST(FixedPoint, TextsOfProgramsComeBackUnitByUnit)
{
    std::mt19937 random(4);
    for (int round = 0; round < 40; ++round) {
        std::vector<std::u16string> texts;
        std::vector<std::string> forms;
        for (int i = 0; i < 50; ++i) {
            texts.push_back(nastyText(random));
            forms.push_back(fileForm(texts.back()));
            ASSERT_EQ(text16(forms.back()), texts.back()) << forms.back();
            ASSERT_EQ(fileForm(text8(forms.back())), forms.back());
        }
        const auto drawing = drawingOf(forms);
        expectFixedPoint(*drawing);
        const Loaded loaded = loadText(saveText(*drawing));
        const Record& text =
            loaded.drawing->at(loaded.drawing->firstChild(loaded.drawing->modelSpace()));
        std::size_t at = 0;
        for (const Tag tag : text.tags) {
            if (tag.code() != 1) continue;
            ASSERT_EQ(text16(tag.text()), texts[at++]);
        }
        ASSERT_EQ(at, texts.size());
        if (HasFailure()) return;
    }
}

TEST(FixedPoint, AnyBytesOfAFileSettleWhenTheyAreReadFirst)
{
    constexpr std::string_view pieces[] = {
        "^",        "^ ",   "^a",        "^J",       "\x01",         "\r",           "\t",   "\\",
        "\\U+",     "00B0", "\\M+18140", "\xFF",     "\xED\xA0\xBD", "\xED\xB8\x80", "\xC3", "\xA4",
        "\xE2\x82", " ",    "U+D83D",    "\\U+D83D", "%%d",          "\x7F"};
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string value;
        for (std::size_t i = random() % 6; i != 0; --i) {
            if (random() % 16 == 0) value += '\0';
            value += pieces[random() % std::size(pieces)];
        }
        std::string text = intoSection(
            newText(), "ENTITIES",
            groups("0 TEXT|5 A1|330 1F|100 AcDbEntity|8 0|1 @@|310 @@|@@1001 ACAD|1000 @@"));
        text = intoSection(text, "HEADER", groups("9 $@@|1 @@"));
        text = intoSection(text, "OBJECTS",
                           groups("0 @@|5 A2|330 C|0 DICTIONARY|5 A3|330 C|3 @@|360 A2"));
        text = replaced(text, "  0\nEOF\n", groups("0 SECTION|2 @@|1 @@|0 ENDSEC|0 EOF"));
        for (std::size_t at = 0; (at = text.find("@@", at)) != std::string::npos;
             at += value.size())
            text.replace(at, 2, value);
        if (round % 2 == 0) text = replaced(text, "AC1027", "AC1015");
        const Loaded first = loadText(text);
        if (first.drawing == nullptr) continue; // "0" may have become part of a structure
        const std::string once = saveText(*first.drawing);
        const Loaded second = loadText(once);
        ASSERT_NE(second.drawing, nullptr) << second.error.message();
        ASSERT_EQ(saveText(*second.drawing), once) << testing::PrintToString(value);
    }
}

TEST(FixedPoint, DoublesComeBackToTheLastBit)
{
    std::mt19937_64 random(6);
    auto drawing = Drawing::createNew();
    Record record(Kind::xrecord, Family::object);
    record.tags.addText(100, "AcDbXrecord");
    const auto add = [&](double value) {
        record.tags.addReal(40, value);
        record.tags.addPoint(10, {value, -value, 0.0});
        record.tags.addReal(50, value); // an angle
    };
    for (const double value :
         {0.0, -0.0, 1e-5, 9.999999e-6, 1e16, 9007199254740993.0, 999999999.9999995,
          std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min()}) {
        add(value);
        add(std::nextafter(value, 1e300));
    }
    for (int i = 0; i < 20000; ++i) {
        const auto bits = std::bit_cast<double>(random());
        if (std::isfinite(bits)) add(bits);
        add(std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(random() % 60)));
        add(static_cast<double>(random() % 2000000000) / 1e6);
    }
    drawing->addToDictionary(drawing->rootDictionary(), "REALS", drawing->add(std::move(record)));
    expectFixedPoint(*drawing);
}

TEST(FixedPoint, ListsOfProgramsReadTheSameAfterEachLoading)
{
    Fixture f;
    f.functions.regApp(u"ORV");
    std::mt19937 random(7);
    std::vector<ObjectId> made;
    for (int i = 0; i < 300; ++i) {
        std::string text;
        for (const char c : utf8(nastyText(random)))
            if (c != '|' && c != '\0') text += c;
        made.push_back(f.make("0 TEXT|10 1 2 3|40 2.5|50 0.1234567890123456|1 " + text +
                              "|-3|1001 ORV|1000 " + text));
        ASSERT_EQ(f.error, ErrNo::none) << text;
        std::string longText;
        while (longText.size() < 700) longText += text + "ab";
        made.push_back(f.make("0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|1 " + longText));
        ASSERT_EQ(f.error, ErrNo::none) << longText;
    }
    expectFixedPoint(*f.drawing);
    const Loaded loaded = loadText(saveText(*f.drawing));
    EntityFunctions functions(*loaded.drawing);
    const Chain apps(acutBuildList(RTSTR, u"*", 0));
    for (const ObjectId id : made) {
        const ObjectId after = loaded.drawing->idOf(loaded.drawing->byHandle(f.record(id).handle));
        resbuf *before = nullptr, *now = nullptr;
        f.functions.entGet(id, apps.get(), before);
        functions.entGet(after, apps.get(), now);
        const Chain ownBefore(before), ownNow(now);
        ASSERT_EQ(showChain(*loaded.drawing, now), showChain(*f.drawing, before));
    }
    // What a program gives back unchanged changes nothing.
    const std::string saved = saveText(*loaded.drawing);
    for (const ObjectId id : made) {
        const ObjectId after = loaded.drawing->idOf(loaded.drawing->byHandle(f.record(id).handle));
        resbuf* now = nullptr;
        functions.entGet(after, apps.get(), now);
        const Chain own(now);
        ASSERT_EQ(functions.entMod(now), ErrNo::none);
        ASSERT_EQ(saveText(*loaded.drawing), saved);
    }
}

TEST(FixedPoint, DrawingsOfAnotherProgramSettleWithTheFirstSaving)
{
    TemporaryFolder folder;
    std::vector<std::string> paths;
    for (const std::string& version : sampleVersions()) paths.push_back(samplePath(version));
    for (const std::string_view kind : {"mixed", "data"}) {
        const std::string path = folder.file(kind);
        const int made = runTool("make_dxf.py", std::string(kind) + " 200 '" + path + "'");
        if (made == kNoLibrary) continue;
        ASSERT_EQ(made, 0);
        paths.push_back(path);
    }
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        const Loaded loaded = load(path);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        expectFixedPoint(*loaded.drawing);
    }
}
