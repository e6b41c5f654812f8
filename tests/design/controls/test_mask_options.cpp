// The mask string's syntax without a window: options built and read back,
// the default test, the typing rules and the three parts.

#include "design/controls/QzMaskOptions.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// The fields of one group, the others left at their defaults, so that two
// option sets compare on what the type's page shows.
TQzMaskOptions Projected(TQzDataType type, const TQzMaskOptions& o)
{
    TQzMaskOptions p;
    p.Align = o.Align;
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::Integer:
    case TQzMaskGroup::Decimal:
        p.Negatives = o.Negatives; p.SignRight = o.SignRight; p.NoZero = o.NoZero; p.Thousands = o.Thousands;
        p.TrimDec = o.TrimDec; p.CheckRange = o.CheckRange; p.FillAllDigits = o.FillAllDigits;
        p.FillZeros = o.FillZeros; p.ShowCurrency = o.ShowCurrency; p.Scientific = o.Scientific;
        break;
    case TQzMaskGroup::DateTime:
        p.Day = o.Day; p.DayName = o.DayName; p.Month = o.Month; p.Year = o.Year; p.Hour = o.Hour;
        p.Minutes = o.Minutes; p.Seconds = o.Seconds; p.AmPm = o.AmPm; p.Hour12 = o.Hour12;
        p.AutoAdjust12H = o.AutoAdjust12H; p.Duration = o.Duration;
        break;
    case TQzMaskGroup::String:
        p.AcceptsSymbols = o.AcceptsSymbols; p.AcceptsLetters = o.AcceptsLetters; p.AcceptsDigits = o.AcceptsDigits;
        p.AcceptsSpaces = o.AcceptsSpaces; p.NoAutoTrim = o.NoAutoTrim; p.FillAllCharacters = o.FillAllCharacters;
        p.SaveMask = o.SaveMask; p.Case = o.Case; p.Password = o.Password; p.DataAlignRight = o.DataAlignRight;
        break;
    case TQzMaskGroup::None: break;
    }
    return p;
}

// Calls visit with every combination of the group's controls.
void EveryOptionSet(TQzMaskGroup group, const std::function<void(const TQzMaskOptions&)>& visit)
{
    const char aligns[] = "<%>";
    if (group == TQzMaskGroup::Integer || group == TQzMaskGroup::Decimal) {
        for (int a = 0; a < 3; ++a)
            for (int neg = 0; neg <= 2; ++neg)
                for (int sci = 0; sci <= 4; ++sci)
                    for (int bits = 0; bits < 256; ++bits) {
                        TQzMaskOptions o;
                        o.Align = aligns[a]; o.Negatives = neg; o.Scientific = sci;
                        bool* boxes[] = {&o.SignRight, &o.NoZero, &o.Thousands, &o.TrimDec,
                                         &o.CheckRange, &o.FillAllDigits, &o.FillZeros, &o.ShowCurrency};
                        for (int i = 0; i < 8; ++i)
                            *boxes[i] = (bits >> i) & 1;
                        visit(o);
                    }
    } else if (group == TQzMaskGroup::DateTime) {
        for (int a = 0; a < 3; ++a)
            for (int dayName = 0; dayName <= 2; ++dayName)
                for (int month = 0; month <= 3; ++month)
                    for (int duration = 0; duration <= 6; ++duration)
                        for (int bits = 0; bits < 256; ++bits) {
                            TQzMaskOptions o;
                            o.Align = aligns[a]; o.DayName = dayName; o.Month = month; o.Duration = duration;
                            o.Year = bits & 1;
                            bool* boxes[] = {&o.Day, &o.Hour, &o.Minutes, &o.Seconds, &o.AmPm, &o.Hour12, &o.AutoAdjust12H};
                            for (int i = 0; i < 7; ++i)
                                *boxes[i] = (bits >> (i + 1)) & 1;
                            visit(o);
                        }
    } else if (group == TQzMaskGroup::String) {
        for (int a = 0; a < 3; ++a)
            for (int c = 0; c <= 3; ++c)
                for (int bits = 0; bits < 512; ++bits) {
                    TQzMaskOptions o;
                    o.Align = aligns[a]; o.Case = c;
                    bool* boxes[] = {&o.AcceptsSymbols, &o.AcceptsLetters, &o.AcceptsDigits, &o.AcceptsSpaces,
                                     &o.NoAutoTrim, &o.FillAllCharacters, &o.SaveMask, &o.Password, &o.DataAlignRight};
                    for (int i = 0; i < 9; ++i)
                        *boxes[i] = (bits >> i) & 1;
                    visit(o);
                }
    }
}

TEST(MaskOptions, EveryOptionSetIsWrittenAndReadBackToTheSameOptions)
{
    for (TQzDataType type : {qdtInteger, qdtFloat, qdtCurrency, qdtString, qdtDateTime}) {
        int failures = 0;
        int sets = 0;
        EveryOptionSet(QzMaskGroupOf(type), [&](const TQzMaskOptions& set) {
            ++sets;
            const AnsiString text = MakeStringOptions(type, set);
            // Read into controls that hold the opposite of everything, so
            // that a control the reader forgets to reset is caught.
            TQzMaskOptions read;
            read.Align = '%'; read.Negatives = 2; read.SignRight = read.NoZero = read.Thousands = true;
            read.Scientific = 3; read.Day = true; read.DayName = 1; read.Month = 2; read.Year = 1; read.Hour = true;
            read.Duration = 4; read.AcceptsSymbols = read.NoAutoTrim = read.Password = true; read.Case = 2;
            read.SaveMask = set.SaveMask;  // the one control a scan leaves alone
            ScanOptions(type, text, read);
            if (Projected(type, read) != Projected(type, set) && ++failures <= 3)
                ADD_FAILURE() << "type " << type << ": \"" << text << "\" read back as \""
                              << MakeStringOptions(type, read) << "\"";
            EXPECT_EQ(MakeStringOptions(type, read), text);
        });
        EXPECT_GT(sets, 1000);
        EXPECT_EQ(failures, 0) << "type " << type;
    }
}

TEST(MaskOptions, MemoMasksWriteSaveMaskButNeverReadItBack)
{
    TQzMaskOptions o;
    o.SaveMask = true;
    const AnsiString text = MakeStringOptions(qdtMemo, o);
    EXPECT_EQ(text, "<m");
    TQzMaskOptions fresh;
    ScanOptions(qdtMemo, text, fresh);
    EXPECT_FALSE(fresh.SaveMask);
    ScanOptions(qdtString, text, fresh);
    EXPECT_TRUE(fresh.SaveMask);
    // A rescan keeps what the box held.
    ScanOptions(qdtMemo, "<a", fresh);
    EXPECT_TRUE(fresh.SaveMask);
}

TEST(MaskOptions, ReadingNormalisesOrderAndGivesCharactersTheirTypesMeaning)
{
    struct Case {
        TQzDataType Type;
        const char* Text;
        const char* Rebuilt;
    };
    const Case cases[] = {
        {qdtFloat, "&.>-", ">-.&"},            // the default in any order
        {qdtInteger, "", ">"},
        {qdtCurrency, "", ">-.&"},
        {qdtString, "", "<sadw"},
        {qdtDateTime, "", "<dmy"},
        {qdtDateTime, "dm>", ">dm"},
        {qdtInteger, "4@0$k&.z*-<", "<-*z.&k$0@4"},
        {qdtInteger, "<-+", "<+"},             // the later sign wins
        {qdtInteger, "<1", "<1"},              // scientific for numbers
        {qdtDateTime, "<1", "<1"},             // long day name for dates
        {qdtString, "<1", "<"},
        {qdtInteger, "<3", "<3"},
        {qdtDateTime, "<3", "<"},
        {qdtInteger, "<k", "<k"},              // check range
        {qdtDateTime, "<k", "<k"},             // auto-adjust 12 H
        {qdtString, "<k", "<"},
        {qdtInteger, "<z", "<z"},              // no zero
        {qdtDateTime, "<z", "<z"},             // duration 1
        {qdtDateTime, "<p", "<p"},             // duration 6
        {qdtDateTime, "<zx", "<x"},            // one duration
        {qdtString, "<l", "<l"},
        {qdtDateTime, "<l", "<"},
        {qdtString, "<m", "<m"},               // save mask
        {qdtDateTime, "<m", "<m"},             // numeric month
        {qdtDateTime, "<mM2", "<2"},
        {qdtString, "<a!#\x7f~", "<a"},        // outside '$' to 'z'
        {qdtString, "<$*", "<$*"},             // fill-all characters, password
        {qdtInteger, "<$*", "<*$"},            // sign right, fill-all digits
        {qdtDateTime, "<ao", "<ao"},
        {qdtString, "rs%", "%sr"},
        {qdtNone, "<ab%>", ">"},               // type 5: the alignment alone
    };
    for (const Case& c : cases) {
        TQzMaskOptions o;
        ScanOptions(c.Type, c.Text, o);
        EXPECT_EQ(MakeStringOptions(c.Type, o), c.Rebuilt) << "type " << c.Type << " \"" << c.Text << "\"";
    }
}

TEST(MaskOptions, DefaultIsTheDefaultsLengthAndCharactersInAnyOrder)
{
    struct Case {
        TQzDataType Type;
        const char* Options;
        bool Default;
    };
    const Case cases[] = {
        {qdtFloat, "&.>-", true}, {qdtCurrency, "-&.>", true}, {qdtFloat, ">-.", false}, {qdtFloat, ">-.&0", false},
        {qdtInteger, ">", true}, {qdtInteger, "<", false}, {qdtString, "<wdas", true}, {qdtMemo, "<sadw", true},
        {qdtString, "<sadu", false}, {qdtDateTime, "<ymd", true}, {qdtDateTime, "<dmd", true},
        {qdtDateTime, ">dmy", false}, {qdtNone, "<", false}, {qdtNone, "", false}, {qdtString, "", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QzMaskIsDefault(c.Type, c.Options), c.Default) << "type " << c.Type << " \"" << c.Options << "\"";
}

TEST(MaskOptions, TypingRefusesRepeatsRivalsAndCharactersOfOtherGroups)
{
    struct Case {
        TQzDataType Type;
        const char* Current;
        char Key;
        bool Allowed;
    };
    const Case cases[] = {
        {qdtString, "<sa", '\b', true}, {qdtString, "<sa", 's', false}, {qdtString, "", '<', true},
        {qdtString, "<", '>', false}, {qdtInteger, "%", '<', false}, {qdtNone, "", '%', true},
        {qdtNone, "", 'a', false},
        // numbers
        {qdtInteger, "", '-', true}, {qdtInteger, "-", '+', false}, {qdtFloat, "+", '-', false},
        {qdtFloat, "", '&', false}, {qdtFloat, "", '1', false}, {qdtFloat, "", '4', false},
        {qdtFloat, "", '@', true}, {qdtFloat, "", 'k', true}, {qdtFloat, "", 'a', false},
        // dates, with the rivals' asymmetry around the digit one
        {qdtDateTime, "D", 'd', false}, {qdtDateTime, "d", 'D', false}, {qdtDateTime, "d", '1', false},
        {qdtDateTime, "D", '1', false}, {qdtDateTime, "1", 'd', true}, {qdtDateTime, "1", 'D', true},
        {qdtDateTime, "M", 'm', false}, {qdtDateTime, "2", 'M', false}, {qdtDateTime, "m", '2', false},
        {qdtDateTime, "", 'k', false}, {qdtDateTime, "", 'z', false}, {qdtDateTime, "", 'o', true},
        {qdtDateTime, "", 'y', true},
        // strings
        {qdtString, "u", 'l', false}, {qdtMemo, "f", 'u', false}, {qdtString, "l", 'f', false},
        {qdtString, "", 'r', false}, {qdtString, "", 't', true}, {qdtString, "", 'm', true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QzMaskOptionKeyAllowed(c.Type, c.Current, c.Key), c.Allowed)
            << "type " << c.Type << " \"" << c.Current << "\" + '" << c.Key << "'";
}

TEST(MaskOptions, TwelveHoursAndDurationsEnableAndRestoreTheDateControls)
{
    TQzMaskOptions o;
    o.Hour12 = true;
    QzApply12HourRule(o);
    EXPECT_TRUE(o.AmPm);
    TQzMaskDateEnabling e = QzMaskDateEnabling(o);
    EXPECT_FALSE(e.AmPm);
    EXPECT_TRUE(e.AutoAdjust12H);

    o.AutoAdjust12H = true;
    o.Hour12 = false;
    QzApply12HourRule(o);
    EXPECT_FALSE(o.AutoAdjust12H);
    EXPECT_TRUE(QzMaskDateEnabling(o).AmPm);

    o = {};
    o.Day = true; o.DayName = 2; o.Month = 3; o.Year = 1;
    TQzMaskDateSaved saved;
    QzMaskSetDuration(o, 2, saved);
    EXPECT_EQ(MakeStringOptions(qdtDateTime, o), "<x");
    e = QzMaskDateEnabling(o);
    EXPECT_FALSE(e.DayMonthYear);
    EXPECT_FALSE(e.Hour12);
    EXPECT_FALSE(e.AmPm);
    // From one duration to another keeps what was saved.
    QzMaskSetDuration(o, 5, saved);
    o.Day = true;  // nothing a disabled box could do, but a stray state
    QzMaskSetDuration(o, 0, saved);
    EXPECT_EQ(MakeStringOptions(qdtDateTime, o), "<d12y");
    EXPECT_TRUE(QzMaskDateEnabling(o).DayMonthYear);
}

TEST(MaskOptions, TheMaskStringSplitsIntoThreePartsAndJoinsBack)
{
    struct Split {
        const char* Text;
        const char* Options;
        const char* MaskText;
        const char* Space;
    };
    const Split splits[] = {
        {"", "", "", "_"},
        {"<sadwu", "<sadwu", "", "_"},
        {"<d;(###)###-####", "<d", "(###)###-####", ""},
        {"<d;(###);*", "<d", "(###)", "*"},
        {"<d;\"a;b\";_", "<d", "a;b", "_"},
        {"<d;\"unclosed;_", "<d", "\"unclosed", "_"},   // damaged: taken as it stands
    };
    for (const Split& s : splits) {
        const TQzMaskParts parts = QzSplitMaskText(s.Text);
        EXPECT_EQ(parts.Options, s.Options) << s.Text;
        EXPECT_EQ(parts.MaskText, s.MaskText) << s.Text;
        EXPECT_EQ(parts.Space, s.Space) << s.Text;
    }

    struct Join {
        TQzDataType Type;
        const char* Options;
        const char* MaskText;
        const char* Space;
        const char* Stored;
    };
    const Join joins[] = {
        {qdtFloat, ">-.&", "", "_", ""},                       // default options store nothing
        {qdtFloat, ">-.", "", "_", ">-."},
        {qdtString, "<sadw", "(###)", "_", "<sadw;(###);_"},
        {qdtString, "<d", "(###)", " ", "<d;(###)"},           // a blank space is left out
        {qdtString, "<d", "  ", "_", "<d"},                    // so is a blank mask text
        {qdtMemo, "<d", "##", "_", "<d;##;_"},
        {qdtInteger, ">", "(###)", "_", ""},                   // numbers have no mask text
        {qdtString, "<d", "a;b", "_", "<d;\"a;b\";_"},         // reads back as written
        {qdtString, "<d", "###-####", "_", "<d;###-####;_"},
        {qdtString, "<d", " (###)", "_", "<d;\" (###)\";_"},
        {qdtString, "<d", "#1#", "_", "<d;\"#1#\";_"},
    };
    for (const Join& j : joins) {
        const AnsiString stored = QzJoinMaskText(j.Type, j.Options, j.MaskText, j.Space);
        EXPECT_EQ(stored, j.Stored);
        if (QzMaskGroupOf(j.Type) == TQzMaskGroup::String && !Trim(AnsiString(j.MaskText)).empty()) {
            EXPECT_EQ(QzSplitMaskText(stored).MaskText, j.MaskText);
        }
    }
}

TEST(MaskOptions, EveryExampleIsStableWhenReadAndRebuilt)
{
    ASSERT_EQ(QzMaskExamples().size(), 9u);
    for (const TQzMaskExample& example : QzMaskExamples()) {
        const TQzMaskParts parts = QzSplitMaskText(example.Mask);
        TQzMaskOptions o;
        ScanOptions(example.Type, parts.Options, o);
        const AnsiString rebuilt = MakeStringOptions(example.Type, o);
        EXPECT_EQ(QzJoinMaskText(example.Type, rebuilt, parts.MaskText, parts.Space),
                  QzMaskIsDefault(example.Type, example.Mask) ? "" : example.Mask)
            << example.Name;
    }
}

}  // namespace
