#include "ORVRtfProperties.h"
#include "ORVTextRtfCommon.h"
#include "rtftesthelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

class TestProperties : public QObject {
    Q_OBJECT

private slots:
    void propertyIds_data();
    void propertyIds();
    void pageBreakBits();
    void pageDefaults_data();
    void pageDefaults();
    void pageDefaultsAreExported();
    void quotes();
    void revisionColors_data();
    void revisionColors();
    void revisionColorMembers();
    void listPropertiesStayOnTheParagraph();
    void lineSpacingProperties();
};

void TestProperties::propertyIds_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("expected");

    QTest::newRow("list override") << int(ORVRtfProperty::ListOverride) << 0x100001;
    QTest::newRow("list level") << int(ORVRtfProperty::ListLevel) << 0x100002;
    QTest::newRow("MathML") << int(ORVRtfProperty::MathML) << 0x100004;
    QTest::newRow("PDF data") << int(ORVRtfProperty::PdfData) << 0x100005;
    QTest::newRow("PDF file name") << int(ORVRtfProperty::PdfFileName) << 0x100006;
    QTest::newRow("has note content") << int(ORVRtfProperty::HasNoteContent) << 0x100007;
    QTest::newRow("note content") << int(ORVRtfProperty::NoteContent) << 0x100008;
    QTest::newRow("revision level") << int(ORVRtfProperty::RevisionLevel) << 0x10000A;
    QTest::newRow("source image data") << int(ORVRtfProperty::SourceImageData) << 0x10000C;
    QTest::newRow("image type") << int(ORVRtfProperty::ImageType) << 0x10000D;
    QTest::newRow("image file name") << int(ORVRtfProperty::ImageFileName) << 0x10000E;
    QTest::newRow("baseline shift") << int(ORVRtfProperty::BaselineShift) << 0x10000F;
    QTest::newRow("in annotation") << int(ORVRtfProperty::InAnnotation) << 0x100064;
    QTest::newRow("in footnote") << int(ORVRtfProperty::InFootnote) << 0x100065;
    QTest::newRow("annotation anchor") << int(ORVRtfProperty::AnnotationAnchor) << 0x100066;
    QTest::newRow("footnote anchor") << int(ORVRtfProperty::FootnoteAnchor) << 0x100067;
    QTest::newRow("bookmark name") << int(ORVRtfProperty::BookmarkName) << 0x1000D2;
    QTest::newRow("page reference") << int(ORVRtfProperty::PageReference) << 0x1000D3;
    QTest::newRow("left indent") << int(ORVRtfProperty::LeftIndent) << 0x1036;
    QTest::newRow("right indent") << int(ORVRtfProperty::RightIndent) << 0x1037;
    QTest::newRow("line spacing") << int(ORVRtfProperty::LineSpacing) << 0x1070;
    QTest::newRow("line multiple") << int(ORVRtfProperty::LineMultiple) << 0x1071;
}

void TestProperties::propertyIds()
{
    QFETCH(int, id);
    QFETCH(int, expected);
    QCOMPARE(id, expected);
}

void TestProperties::pageBreakBits()
{
    QCOMPARE(int(ORVRtfProperty::KeepLinesTogether), 0x200);
    QCOMPARE(int(ORVRtfProperty::KeepWithNext), 0x20);
}

void TestProperties::pageDefaults_data()
{
    QTest::addColumn<int>("twips");
    QTest::addColumn<int>("expected");

    QTest::newRow("paper width") << int(ORVTextRtfCommon::defaultPaperWidth) << 12240;
    QTest::newRow("paper height") << int(ORVTextRtfCommon::defaultPaperHeight) << 15840;
    QTest::newRow("left margin") << int(ORVTextRtfCommon::defaultLeftMargin) << 1800;
    QTest::newRow("right margin") << int(ORVTextRtfCommon::defaultRightMargin) << 1800;
    QTest::newRow("top margin") << int(ORVTextRtfCommon::defaultTopMargin) << 1440;
    QTest::newRow("bottom margin") << int(ORVTextRtfCommon::defaultBottomMargin) << 1440;
}

void TestProperties::pageDefaults()
{
    QFETCH(int, twips);
    QFETCH(int, expected);
    QCOMPARE(twips, expected);
}

// Clients may take references to the defaults, as qMax() does.
void TestProperties::pageDefaultsAreExported()
{
    const int* const twips[] = {&ORVTextRtfCommon::defaultPaperWidth, &ORVTextRtfCommon::defaultPaperHeight,
                                &ORVTextRtfCommon::defaultLeftMargin, &ORVTextRtfCommon::defaultRightMargin,
                                &ORVTextRtfCommon::defaultTopMargin,  &ORVTextRtfCommon::defaultBottomMargin};
    const int expected[] = {12240, 15840, 1800, 1800, 1440, 1440};
    for (int i = 0; i < 6; ++i)
        QCOMPARE(*twips[i], expected[i]);
}

void TestProperties::quotes()
{
    QCOMPARE(ORVTextRtfCommon::defaultSingleQuotes.first, QChar(0x2018));
    QCOMPARE(ORVTextRtfCommon::defaultSingleQuotes.second, QChar(0x2019));
    QCOMPARE(ORVTextRtfCommon::defaultDoubleQuotes.first, QChar(0x201C));
    QCOMPARE(ORVTextRtfCommon::defaultDoubleQuotes.second, QChar(0x201D));
}

void TestProperties::revisionColors_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("1 red") << 1 << QColor(255, 0, 0);
    QTest::newRow("2 blue") << 2 << QColor(0, 0, 255);
    QTest::newRow("3 green") << 3 << QColor(0, 255, 0);
    QTest::newRow("4 orange") << 4 << QColor(255, 165, 0);
    QTest::newRow("5 purple") << 5 << QColor(128, 0, 128);
    for (int level : {0, 6, 7, 100, -1, -5, 0x7FFFFFFF, -0x7FFFFFFF})
        QTest::addRow("%d black", level) << level << QColor(0, 0, 0);
}

void TestProperties::revisionColors()
{
    QFETCH(int, level);
    QFETCH(QColor, expected);
    QCOMPARE(ORVTextRtfCommon::revisionColor(level), expected);
}

void TestProperties::revisionColorMembers()
{
    QCOMPARE(ORVTextRtfCommon::firstRevisionColor, QColor(Qt::red));
    QCOMPARE(ORVTextRtfCommon::secondRevisionColor, QColor(Qt::blue));
    QCOMPARE(ORVTextRtfCommon::thirdRevisionColor, QColor(Qt::green));
    QCOMPARE(ORVTextRtfCommon::fourthRevisionColor, QColor(QStringLiteral("orange")));
    QCOMPARE(ORVTextRtfCommon::fifthRevisionColor, QColor(QStringLiteral("purple")));
}

void TestProperties::listPropertiesStayOnTheParagraph()
{
    const Reading reading = readBody("\\pard\\ls2\\ilvl1 item");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.blockFormat(0).intProperty(ORVRtfProperty::ListOverride), 2);
    QCOMPARE(reading.blockFormat(0).intProperty(ORVRtfProperty::ListLevel), 1);
    QVERIFY(reading.block(0).textList());
}

void TestProperties::lineSpacingProperties()
{
    const Reading reading = readBody("\\pard\\slmult1\\sl360 text");
    QCOMPARE(reading.blockFormat(0).doubleProperty(ORVRtfProperty::LineSpacing), 18.0);
    QCOMPARE(reading.blockFormat(0).doubleProperty(ORVRtfProperty::LineMultiple), 12.0);
}

QTEST_MAIN(TestProperties)
#include "tst_properties.moc"
