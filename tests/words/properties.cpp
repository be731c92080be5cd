#include "testsupport.h"

using namespace rtftest;

class TestProperties : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(enumerators)
    {
        const Rows add([](int id, int expected) { QCOMPARE(id, expected); });
        add("list override", ORVRtfProperty::ListOverride, 0x100001);
        add("list level", ORVRtfProperty::ListLevel, 0x100002);
        add("MathML", ORVRtfProperty::MathML, 0x100004);
        add("PDF data", ORVRtfProperty::PdfData, 0x100005);
        add("PDF file name", ORVRtfProperty::PdfFileName, 0x100006);
        add("has note content", ORVRtfProperty::HasNoteContent, 0x100007);
        add("note content", ORVRtfProperty::NoteContent, 0x100008);
        add("revision level", ORVRtfProperty::RevisionLevel, 0x10000A);
        add("source image data", ORVRtfProperty::SourceImageData, 0x10000C);
        add("image type", ORVRtfProperty::ImageType, 0x10000D);
        add("image file name", ORVRtfProperty::ImageFileName, 0x10000E);
        add("baseline shift", ORVRtfProperty::BaselineShift, 0x10000F);
        add("in annotation", ORVRtfProperty::InAnnotation, 0x100064);
        add("in footnote", ORVRtfProperty::InFootnote, 0x100065);
        add("annotation anchor", ORVRtfProperty::AnnotationAnchor, 0x100066);
        add("footnote anchor", ORVRtfProperty::FootnoteAnchor, 0x100067);
        add("bookmark name", ORVRtfProperty::BookmarkName, 0x1000D2);
        add("page reference", ORVRtfProperty::PageReference, 0x1000D3);
        add("left indent", ORVRtfProperty::LeftIndent, 0x1036);
        add("right indent", ORVRtfProperty::RightIndent, 0x1037);
        add("line spacing", ORVRtfProperty::LineSpacing, 0x1070);
        add("line multiple", ORVRtfProperty::LineMultiple, 0x1071);
        add("export as annotation", ORVTextRtf::ExportAsAnnotation, 0);
        add("export as footnote", ORVTextRtf::ExportAsFootnote, 1);
        add("export as alternate footnote", ORVTextRtf::ExportAsAlternateFootnote, 2);
        add("keep lines together", ORVRtfProperty::KeepLinesTogether, 0x200);
        add("keep with next", ORVRtfProperty::KeepWithNext, 0x20);
    }

    // Clients may take references to the defaults, as qMax() does.
    void pageDefaultsAreExported()
    {
        const int* const twips[] = {
            &ORVTextRtfCommon::defaultPaperWidth, &ORVTextRtfCommon::defaultPaperHeight,
            &ORVTextRtfCommon::defaultLeftMargin, &ORVTextRtfCommon::defaultRightMargin,
            &ORVTextRtfCommon::defaultTopMargin,  &ORVTextRtfCommon::defaultBottomMargin};
        const int expected[] = {12240, 15840, 1800, 1800, 1440, 1440};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(*twips[i], expected[i]);
    }

    void quotes()
    {
        QCOMPARE(ORVTextRtfCommon::defaultSingleQuotes, qMakePair(QChar(0x2018), QChar(0x2019)));
        QCOMPARE(ORVTextRtfCommon::defaultDoubleQuotes, qMakePair(QChar(0x201C), QChar(0x201D)));
    }

    ORV_ROWS(revisionColors)
    {
        const Rows add([](int level, const QColor& expected, const QColor& member) {
            QCOMPARE(ORVTextRtfCommon::revisionColor(level), expected);
            QCOMPARE(member, expected);
        });
        add("1 red", 1, QColor(255, 0, 0), ORVTextRtfCommon::firstRevisionColor);
        add("2 blue", 2, QColor(0, 0, 255), ORVTextRtfCommon::secondRevisionColor);
        add("3 green", 3, QColor(0, 255, 0), ORVTextRtfCommon::thirdRevisionColor);
        add("4 orange", 4, QColor(255, 165, 0), ORVTextRtfCommon::fourthRevisionColor);
        add("5 purple", 5, QColor(128, 0, 128), ORVTextRtfCommon::fifthRevisionColor);
        for (int level : {0, 6, 7, 100, -1, -5, 0x7FFFFFFF, -0x7FFFFFFF})
            add(QByteArray::number(level) + " black", level, QColor(0, 0, 0), QColor(0, 0, 0));
    }

    void listPropertiesStayOnTheParagraph()
    {
        const Reading reading = readBody("\\pard\\ls2\\ilvl1 item");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.blockFormat(0).intProperty(ORVRtfProperty::ListOverride), 2);
        QCOMPARE(reading.blockFormat(0).intProperty(ORVRtfProperty::ListLevel), 1);
        QVERIFY(reading.block(0).textList());
    }
};

ORV_TEST("properties", TestProperties, QGuiApplication)
#include "properties.moc"
