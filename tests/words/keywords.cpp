#include "ORVRtfKeywords.h"
#include "ORVTextRtfCommon.h"

#include <QtTest/QtTest>

#include <cstring>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

/*! Opens the lookup tables, which only subclasses see. */
class Tables : public ORVTextRtfCommon {
public:
    static int spellings() { return int(mMap.size()); }
    static int hashes() { return int(mHash.size()); }
    static bool holds(KeyWord keyWord, unsigned int hash) { return mHash.contains(hash, keyWord); }
};

struct Row {
    const char* name;
    const char* constant;
    ORVTextRtfCommon::KeyWord keyWord;
    const char* spelling;
};

#define ROW(name, spelling) \
    { \
#name, ORVRtfKeywords::name##Str, ORVTextRtfCommon::name, spelling \
    }

/*! Every control word and control symbol, spelled out. */
const std::vector<Row>& rows()
{
    static const std::vector<Row> all = {
        // Document header, fonts and colours
        ROW(RtfVersion, "\\rtf"),
        ROW(AnsiCharSet, "\\ansi"),
        ROW(AnsiCodePage, "\\ansicpg"),
        ROW(CodePage, "\\cpg"),
        ROW(FontCharSet, "\\fcharset"),
        ROW(DefaultFontNumber, "\\deff"),
        ROW(FontTable, "\\fonttbl"),
        ROW(ColorTable, "\\colortbl"),
        ROW(Red, "\\red"),
        ROW(Blue, "\\blue"),
        ROW(Green, "\\green"),
        ROW(ForegroundColor, "\\cf"),
        ROW(BackgroundColor, "\\cb"),
        ROW(HighlightColor, "\\highlight"),
        ROW(RomanFont, "\\froman"),
        ROW(NilFont, "\\fnil"),
        ROW(SwissFont, "\\fswiss"),
        ROW(ModernFont, "\\fmodern"),
        ROW(ScriptFont, "\\fscript"),
        ROW(DecorFont, "\\fdecor"),
        ROW(TechFont, "\\ftech"),
        ROW(BidirectionalFont, "\\fbidi"),
        // Unicode and special characters
        ROW(UnicodeCharacterBytes, "\\uc"),
        ROW(UnicodeCharacterValue, "\\u"),
        ROW(ExtendedCharacterValue, "\\'"),
        ROW(NonBreakableSpace, "\\~"),
        ROW(OptionalHyphen, "\\-"),
        ROW(NonBreakingHyphen, "\\_"),
        ROW(OptionalDestination, "\\*"),
        ROW(CompatibilityText, "\\upr"),
        ROW(UnicodeText, "\\ud"),
        ROW(EscapedSlash, "\\\\"),
        ROW(EscapedOpenBrace, "\\{"),
        ROW(EscapedCloseBrace, "\\}"),
        ROW(TabCharacter, "\\tab"),
        ROW(LeftQuote, "\\lquote"),
        ROW(RightQuote, "\\rquote"),
        ROW(LeftDoubleQuote, "\\ldblquote"),
        ROW(RightDoubleQuote, "\\rdblquote"),
        ROW(EnDash, "\\endash"),
        ROW(EmDash, "\\emdash"),
        ROW(Bullet, "\\bullet"),
        ROW(SoftLineBreak, "\\line"),
        // Frames
        ROW(FrameWidth, "\\absw"),
        ROW(FrameHeight, "\\absh"),
        ROW(FrameNoWrap, "\\nowrap"),
        ROW(FramePositionLeft, "\\posxl"),
        ROW(FramePositionCenter, "\\posxc"),
        ROW(FramePositionRight, "\\posxr"),
        // Binary data
        ROW(BinaryData, "\\bin"),
        // Character formatting
        ROW(Font, "\\f"),
        ROW(FontSize, "\\fs"),
        ROW(FontPitchType, "\\fprq"),
        ROW(Italic, "\\i"),
        ROW(Bold, "\\b"),
        ROW(Outline, "\\outl"),
        ROW(StrokeWidth, "\\strokewidth"),
        ROW(StrokeColor, "\\strokec"),
        ROW(SubScript, "\\sub"),
        ROW(SuperScript, "\\super"),
        ROW(NoSuperSubScript, "\\nosupersub"),
        ROW(StrikeThrough, "\\strike"),
        ROW(StrikeThroughColor, "\\strikec"),
        ROW(SmallCaps, "\\scaps"),
        ROW(NoUnderline, "\\ulnone"),
        ROW(UnderlineSolid, "\\ul"),
        ROW(UnderlineColor, "\\ulc"),
        ROW(UnderlineDot, "\\uld"),
        ROW(UnderlineDash, "\\uldash"),
        ROW(UnderlineDashDot, "\\uldashd"),
        ROW(UnderlineDashDotDot, "\\uldashdd"),
        ROW(UnderlineWave, "\\ulwave"),
        ROW(UnderlineWord, "\\ulw"),
        ROW(UnderlineDouble, "\\uldb"),
        // Notes and annotations
        ROW(FootnoteEndnoteType, "\\fet"),
        ROW(FootnotesAtBottomOfPage, "\\ftnbj"),
        ROW(EndnotesAtEndOfDocument, "\\aenddoc"),
        ROW(AnnotationCharacter, "\\chatn"),
        ROW(FootnoteCharacter, "\\chftn"),
        ROW(Annotation, "\\annotation"),
        ROW(AnnotationRef, "\\atnref"),
        ROW(AnnotationRefStart, "\\atrfstart"),
        ROW(AnnotationRefEnd, "\\atrfend"),
        ROW(AnnotationId, "\\atnid"),
        ROW(AnnotationAuthor, "\\atnauthor"),
        ROW(Footnote, "\\footnote"),
        ROW(AlternateFootnote, "\\ftnalt"),
        // Fields and bookmarks
        ROW(Field, "\\field"),
        ROW(FieldInstruction, "\\fldinst"),
        ROW(FieldResult, "\\fldrslt"),
        ROW(BookmarkStart, "\\bkmkstart"),
        ROW(BookmarkEnd, "\\bkmkend"),
        // Paragraphs and breaks
        ROW(NewParagraph, "\\par"),
        ROW(NewParagraphSymbol, "\\\n"),
        ROW(NewPage, "\\page"),
        ROW(ResetFormat, "\\plain"),
        ROW(ResetParagraph, "\\pard"),
        ROW(KeepParagraphIntact, "\\keep"),
        ROW(KeepParagraphWithNext, "\\keepn"),
        ROW(StartParagraphOnNewPage, "\\pagebb"),
        // Tables
        ROW(InTable, "\\intbl"),
        ROW(TableNesting, "\\itap"),
        ROW(TableRowDefinition, "\\trowd"),
        ROW(NestedTableRowDefinition, "\\nesttableprops"),
        ROW(TableRowCellPadding, "\\trgaph"),
        ROW(TableAutofit, "\\trautofit"),
        ROW(TableLeftOffset, "\\trleft"),
        ROW(TableRowBorderTop, "\\trbrdrt"),
        ROW(TableRowBorderLeft, "\\trbrdrl"),
        ROW(TableRowBorderRight, "\\trbrdrr"),
        ROW(TableRowBorderBottom, "\\trbrdrb"),
        ROW(CellMergeFirst, "\\clmgf"),
        ROW(CellMergePreceeding, "\\clmrg"),
        ROW(CellVerticalMergeFirst, "\\clvmgf"),
        ROW(CellVerticalMergePreceeding, "\\clvmrg"),
        ROW(CellBorderTop, "\\clbrdrt"),
        ROW(CellBorderLeft, "\\clbrdrl"),
        ROW(CellBorderRight, "\\clbrdrr"),
        ROW(CellBorderBottom, "\\clbrdrb"),
        ROW(CellVerticalAlignTop, "\\clvertalt"),
        ROW(CellVerticalAlignCenter, "\\clvertalc"),
        ROW(CellVerticalAlignBottom, "\\clvertalb"),
        ROW(TextVerticalAlignTop, "\\vertalt"),
        ROW(TextVerticalAlignCenter, "\\vertalc"),
        ROW(TextVerticalAlign, "\\vertal"),
        ROW(TextVerticalAlignBottom, "\\vertalb"),
        ROW(TextVerticalAlignJustified, "\\vertalj"),
        ROW(TextUp, "\\up"),
        ROW(TextDown, "\\dn"),
        ROW(CellPadTop, "\\clpadt"),
        ROW(CellPadLeft, "\\clpadl"),
        ROW(CellPadRight, "\\clpadr"),
        ROW(CellPadBottom, "\\clpadb"),
        ROW(CellRightBoundary, "\\cellx"),
        ROW(BorderWidth, "\\brdrw"),
        ROW(SingleWidthBorder, "\\brdrs"),
        ROW(BorderColor, "\\brdrcf"),
        ROW(NoBorder, "\\brdrnil"),
        ROW(NoCellShading, "\\clshdrawnil"),
        // Tabs, indents, page and spacing
        ROW(TabPosition, "\\tx"),
        ROW(FlushRightTab, "\\tqr"),
        ROW(CenteredTab, "\\tqc"),
        ROW(DecimalTab, "\\tqdec"),
        ROW(LeftIndent, "\\li"),
        ROW(TextIndent, "\\fi"),
        ROW(RightIndent, "\\ri"),
        ROW(LeftIndentI18n, "\\lin"),
        ROW(RightIndentI18n, "\\rin"),
        ROW(PaperWidth, "\\paperw"),
        ROW(PaperHeight, "\\paperh"),
        ROW(LeftMargin, "\\margl"),
        ROW(RightMargin, "\\margr"),
        ROW(TopMargin, "\\margt"),
        ROW(BottomMargin, "\\margb"),
        ROW(LineSpacing, "\\sl"),
        ROW(LineSpacingMultiple, "\\slmult"),
        ROW(SpaceBeforeParagraph, "\\sb"),
        ROW(SpaceAfterParagraph, "\\sa"),
        ROW(LeftAlignParagraph, "\\ql"),
        ROW(RightAlignParagraph, "\\qr"),
        ROW(CenterParagraph, "\\qc"),
        ROW(JustifyParagraph, "\\qj"),
        // Direction and character sets
        ROW(LeftToRightParagraph, "\\ltrpar"),
        ROW(RightToLeftParagraph, "\\rtlpar"),
        ROW(LeftToRightCharacters, "\\ltrch"),
        ROW(RightToLeftCharacters, "\\rtlch"),
        ROW(LowAnsiCharacters, "\\loch"),
        ROW(HighAnsiCharacters, "\\hich"),
        ROW(DoubleAnsiCharacters, "\\dbch"),
        ROW(AssociatedFont, "\\af"),
        // Cell shading and table ends
        ROW(BackgroundPatternColor, "\\clcbpat"),
        ROW(EndNestedCell, "\\nestcell"),
        ROW(EndNestedRow, "\\nestrow"),
        ROW(EndCell, "\\cell"),
        ROW(EndRow, "\\row"),
        ROW(LastRow, "\\lastrow"),
        ROW(NoNestTables, "\\nonesttables"),
        // Pictures
        ROW(NonShpPicture, "\\nonshppict"),
        ROW(ShpPicture, "\\shppict"),
        ROW(Picture, "\\pict"),
        ROW(PngData, "\\pngblip"),
        ROW(JpegData, "\\jpegblip"),
        ROW(WindowsMetaFile, "\\wmetafile"),
        ROW(PictureScaleX, "\\picscalex"),
        ROW(PictureScaleY, "\\picscaley"),
        ROW(PictureWidth, "\\picw"),
        ROW(PictureHeight, "\\pich"),
        ROW(PictureGoalWidth, "\\picwgoal"),
        ROW(PictureGoalHeight, "\\pichgoal"),
        ROW(PictureName, "\\nisusfilename"),
        ROW(OrvellinePdf, "\\orvellinepdf"),
        ROW(PdfFileName, "\\pdffilename"),
        ROW(MathMLEquation, "\\mathmlequation"),
        // Lists
        ROW(List, "\\list"),
        ROW(ListTable, "\\listtable"),
        ROW(HybridList, "\\listhybrid"),
        ROW(SimpleList, "\\listsimple"),
        ROW(ListName, "\\listname"),
        ROW(ListTemplateId, "\\listtemplateid"),
        ROW(ListId, "\\listid"),
        ROW(ListLevel, "\\listlevel"),
        ROW(ListLevelFormat, "\\levelnfc"),
        ROW(ListLevelFormatNew, "\\levelnfcn"),
        ROW(ListText, "\\listtext"),
        ROW(ListLevelText, "\\leveltext"),
        ROW(ListLevelTemplateId, "\\leveltemplateid"),
        ROW(ListLevelNumberOffsets, "\\levelnumbers"),
        ROW(ListLevelMarker, "\\levelmarker"),
        ROW(ListBulletPlainText, "\\pntext"),
        ROW(ListLevelJustification, "\\leveljc"),
        ROW(ListLevelJustificationNew, "\\leveljcn"),
        ROW(ListLevelTextFollow, "\\levelfollow"),
        ROW(ListLevelFirstItem, "\\levelstartat"),
        ROW(ListLevelTextFollowSpace, "\\levelspace"),
        ROW(ListLevelIndent, "\\levelindent"),
        ROW(ListOverrideTable, "\\listoverridetable"),
        ROW(ListOverrideItemCount, "\\listoverridecount"),
        ROW(ListOverrideIndex, "\\ls"),
        ROW(ListOverrideItem, "\\listoverride"),
        ROW(ListFormatOverrideLevel, "\\lfolevel"),
        ROW(BlockListLevel, "\\ilvl"),
        // Styles and document information
        ROW(StyleSheet, "\\stylesheet"),
        ROW(CharacterStyle, "\\cs"),
        ROW(MetaInformation, "\\info"),
        // Headers, footers and page numbers
        ROW(Footer, "\\footer"),
        ROW(FirstFooter, "\\footerf"),
        ROW(LeftFooter, "\\footerl"),
        ROW(RightFooter, "\\footerr"),
        ROW(Header, "\\header"),
        ROW(FirstHeader, "\\headerf"),
        ROW(LeftHeader, "\\headerl"),
        ROW(RightHeader, "\\headerr"),
        ROW(TitlePage, "\\titlepg"),
        ROW(PageNumberRestart, "\\pgnrestart"),
        ROW(PageNumberStart, "\\pgnstarts"),
        ROW(PageNumber, "\\chpgn"),
        // The application's own revision marking
        ROW(OrvellineRevisionLevel, "\\orvrevlvl"),
    };
    return all;
}

#undef ROW

} // namespace

class TestKeywords : public QObject {
    Q_OBJECT

private slots:
    void firstUseInSeveralThreads();
    void tablesHoldEveryWordOnce();
    void spellings_data();
    void spellings();
    void membersAreDistinct();
    void constantsArePlainPointers();
    void hash_data();
    void hash();
    void lookup_data();
    void lookup();
    void lookupNeedsNoTerminator();
    void wordsOfEqualHashAreTold();
    void noSpellingOutsideTheTable();
};

// Runs first: here the tables do not exist yet, unless start-up of the library has built them.
void TestKeywords::firstUseInSeveralThreads()
{
    std::vector<std::thread> threads;
    std::vector<int> failures(8, 0);
    for (size_t i = 0; i < failures.size(); ++i) {
        threads.emplace_back([&failures, i]() {
            ORVTextRtfCommon common;
            for (const Row& row : rows()) {
                if (common.fromLatin1(row.spelling, uint(std::strlen(row.spelling))) != row.keyWord)
                    ++failures[i];
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(failures, std::vector<int>(failures.size(), 0));
    QCOMPARE(Tables::spellings(), 237);
    QCOMPARE(Tables::hashes(), 237);
}

void TestKeywords::tablesHoldEveryWordOnce()
{
    QCOMPARE(int(rows().size()), 237);
    QCOMPARE(int(ORVTextRtfCommon::KeyWordCount), 237);
    ORVTextRtfCommon common;
    ORVTextRtfCommon::initMap();
    ORVTextRtfCommon::initHash();
    QCOMPARE(Tables::spellings(), 237);
    QCOMPARE(Tables::hashes(), 237);
}

void TestKeywords::spellings_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < rows().size(); ++i)
        QTest::newRow(rows()[i].name) << int(i);
}

void TestKeywords::spellings()
{
    QFETCH(int, index);
    const Row& row = rows()[size_t(index)];
    const uint length = uint(std::strlen(row.spelling));

    QCOMPARE(row.constant, row.spelling);
    QCOMPARE(ORVTextRtfCommon::fromLatin1(row.spelling, length), row.keyWord);
    const QLatin1String spelling = ORVTextRtfCommon::toLatin1(row.keyWord);
    QCOMPARE(QByteArray(spelling.latin1(), int(spelling.size())), QByteArray(row.spelling));
    QVERIFY2(spelling.latin1() == row.constant, "the table points at the exported constant");
    QVERIFY(Tables::holds(row.keyWord, ORVTextRtfCommon::hash(row.spelling, length)));
}

void TestKeywords::membersAreDistinct()
{
    QSet<int> members;
    QSet<QByteArray> spellings;
    for (const Row& row : rows()) {
        members.insert(row.keyWord);
        spellings.insert(row.spelling);
    }
    QCOMPARE(int(members.size()), 237);
    QCOMPARE(int(spellings.size()), 237);
    QVERIFY(!members.contains(0));
}

void TestKeywords::constantsArePlainPointers()
{
    const bool plain = std::is_same<decltype(ORVRtfKeywords::BoldStr), const char*>::value;
    QVERIFY(plain);
}

void TestKeywords::hash_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<uint>("expected");

    // Length in the upper half, sum of the signed bytes in the lower.
    QTest::newRow("empty") << QByteArray() << 0u;
    QTest::newRow("backslash") << QByteArray("\\") << 65536u + 92u;
    QTest::newRow("b") << QByteArray("\\b") << 2u * 65536u + 92u + 98u;
    QTest::newRow("par") << QByteArray("\\par") << 4u * 65536u + 92u + 112u + 97u + 114u;
    QTest::newRow("pard") << QByteArray("\\pard") << 5u * 65536u + 92u + 112u + 97u + 114u + 100u;
    QTest::newRow("line feed symbol") << QByteArray("\\\n") << 2u * 65536u + 92u + 10u;
    QTest::newRow("0xE9 counts -23") << QByteArray("\xE9") << 65513u;
    QTest::newRow("0x80 counts -128") << QByteArray("\x80") << 65536u - 128u;
    QTest::newRow("0x7F counts 127") << QByteArray("\x7F") << 65536u + 127u;
    QTest::newRow("two bytes of -1") << QByteArray("\xFF\xFF") << 131070u;
    QTest::newRow("NUL counts 0") << QByteArray("\0", 1) << 65536u;
}

void TestKeywords::hash()
{
    QFETCH(QByteArray, bytes);
    QFETCH(uint, expected);
    QCOMPARE(ORVTextRtfCommon::hash(bytes.constData(), uint(bytes.size())), expected);
}

void TestKeywords::lookup_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("expected");

    QTest::newRow("par") << QByteArray("\\par") << int(ORVTextRtfCommon::NewParagraph);
    QTest::newRow("pard") << QByteArray("\\pard") << int(ORVTextRtfCommon::ResetParagraph);
    QTest::newRow("f") << QByteArray("\\f") << int(ORVTextRtfCommon::Font);
    QTest::newRow("u") << QByteArray("\\u") << int(ORVTextRtfCommon::UnicodeCharacterValue);
    QTest::newRow("backslash line feed") << QByteArray("\\\n") << int(ORVTextRtfCommon::NewParagraphSymbol);
    QTest::newRow("backslash carriage return") << QByteArray("\\\r") << 0;
    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("backslash alone") << QByteArray("\\") << 0;
    QTest::newRow("without backslash") << QByteArray("par") << 0;
    QTest::newRow("upper case") << QByteArray("\\PAR") << 0;
    QTest::newRow("prefix of a word") << QByteArray("\\pa") << 0;
    QTest::newRow("word and more") << QByteArray("\\parx") << 0;
    QTest::newRow("parameter included") << QByteArray("\\b0") << 0;
    QTest::newRow("letters of a word, other order") << QByteArray("\\apr") << 0;
    QTest::newRow("unknown word") << QByteArray("\\unknownword") << 0;
    QTest::newRow("unknown symbol") << QByteArray("\\|") << 0;
    QTest::newRow("bytes above 0x7F") << QByteArray("\\\xE9\xE9") << 0;
    QTest::newRow("64 bytes") << "\\" + QByteArray(63, 'z') << 0;
}

void TestKeywords::lookup()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, expected);
    QCOMPARE(int(ORVTextRtfCommon::fromLatin1(bytes.constData(), uint(bytes.size()))), expected);
}

void TestKeywords::lookupNeedsNoTerminator()
{
    QCOMPARE(ORVTextRtfCommon::fromLatin1("\\pard", 4), ORVTextRtfCommon::NewParagraph);
    QCOMPARE(ORVTextRtfCommon::fromLatin1("\\b0 bold", 2), ORVTextRtfCommon::Bold);
}

void TestKeywords::wordsOfEqualHashAreTold()
{
    QCOMPARE(ORVTextRtfCommon::hash("\\ls", 3), ORVTextRtfCommon::hash("\\sl", 3));
    QCOMPARE(ORVTextRtfCommon::fromLatin1("\\ls", 3), ORVTextRtfCommon::ListOverrideIndex);
    QCOMPARE(ORVTextRtfCommon::fromLatin1("\\sl", 3), ORVTextRtfCommon::LineSpacing);
}

void TestKeywords::noSpellingOutsideTheTable()
{
    QVERIFY(!ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::NoKeyWord).latin1());
    QVERIFY(!ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWordEnd).latin1());
    QVERIFY(!ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(4095)).latin1());
}

QTEST_GUILESS_MAIN(TestKeywords)
#include "tst_keywords.moc"
