#include "testsupport.h"

using namespace rtftest;

namespace {

QByteArray serifEntry()
{
    return "{\\f0\\fnil\\fcharset1252\\fprq2 Quibble Serif;}";
}

/*! Text with a footnote in line, whose text begins with blanks. */
QSharedPointer<QTextDocument> footnoteDocument()
{
    const QSharedPointer<QTextDocument> document = textDocument("a"_s);
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::InFootnote, true);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("  note"_s, format);
    return document;
}

QByteArray footnote(const QByteArray& text)
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}" + text + "}}";
}

} // namespace

/*! The conversions to bytes that an application calls. */
class TestInMemoryWriting : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFont font;
        compat::setFamily(font, QString::fromLatin1(DefaultFamily));
        font.setPointSizeF(DefaultPointSize);
        QGuiApplication::setFont(font);
    }

    void toRtfData()
    {
        const QSharedPointer<QTextDocument> document = textDocument("Hello"_s);
        QCOMPARE(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false)),
                 documentHead() + firstParagraph() + "{\\f0\\fs24 Hello}}");
        QCOMPARE(wellFormed(ORVTextRtf::toRtfData(newDocument().data(), false, false)),
                 documentHead() + firstParagraph() + "\\f0\\fs24}");
    }

    void toRtfDataOfNoDocument()
    {
        for (bool inPlace : {false, true}) {
            for (bool exportingMode : {false, true})
                QVERIFY(ORVTextRtf::toRtfData(nullptr, inPlace, exportingMode).isEmpty());
            QVERIFY(ORVTextRtf::toRtfCData(nullptr, inPlace).isEmpty());
        }
    }

    void toRtfDataExporting()
    {
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::RevisionLevel, 1);
        const QSharedPointer<QTextDocument> document = textDocument("<$p>"_s, format);
        QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false))),
                 firstParagraph() + "{\\f0\\fs24\\*\\orvrevlvl1 <$p>}");
        QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, true))),
                 firstParagraph() + "{\\f0\\fs24\\cf3 {\\chpgn}}");
    }

    void toRtfDataInPlace()
    {
        const QSharedPointer<QTextDocument> document = textDocument("Hello"_s);
        const QByteArray copied = ORVTextRtf::toRtfData(document.data(), false, false);
        QVERIFY(document->isUndoRedoEnabled());
        QVERIFY(document->isUndoAvailable());
        QCOMPARE(wellFormed(ORVTextRtf::toRtfData(document.data(), true, false)), copied);
        QVERIFY(!document->isUndoRedoEnabled());
    }

    void exportedNotesBeginWithOneBlank()
    {
        const QSharedPointer<QTextDocument> document = footnoteDocument();
        const QByteArray anchor = firstParagraph() + "{\\f0\\fs24 a}";
        QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false))),
                 anchor + footnote("\\f0\\fs24   note"));
        QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, true))),
                 anchor + footnote(" \\f0\\fs24 note"));
    }

    void toRtfCData()
    {
        const QSharedPointer<QTextDocument> document = footnoteDocument();
        // As it is stored: no placeholder becomes a field and no note is touched.
        QTextCursor(document.data()).insertText("<$p>"_s);
        const QByteArray stored = ORVTextRtf::toRtfCData(document.data(), false);
        QCOMPARE(bodyOf(wellFormed(stored)),
                 firstParagraph() + "{\\f0\\fs24 <$p>a}" + footnote("\\f0\\fs24   note"));
        QVERIFY(document->isUndoRedoEnabled());
        QCOMPARE(ORVTextRtf::toRtfCData(document.data(), true), stored);
        QVERIFY(!document->isUndoRedoEnabled());
    }

    void toRtfCDataReadsBack()
    {
        const QString text = "{One}\n\xc3\xa9\xe2\x82\xac\\ \xf0\x9f\x98\x80\n\n\tend"_s;
        const QSharedPointer<QTextDocument> document = textDocument(text);
        const QByteArray stored = ORVTextRtf::toRtfCData(document.data(), false);
        const QSharedPointer<QTextDocument> back = newDocument();
        QVERIFY(ORVTextRtf::fromRtfCData(wellFormed(stored), back.data()));
        QCOMPARE(textOf(*back), text);
        QCOMPARE(ORVTextRtf::rtfCDataText(stored), text);
    }

    ORV_ROWS(textToRtf)
    {
        const Rows add([](const QString& text, const QByteArray& body) {
            QCOMPARE(wellFormed(ORVTextRtf::textToRtf(text, nullptr)),
                     documentHead() + firstParagraph() + body + '}');
        });
        add("nothing", QString(), "\\f0\\fs24");
        add("one line", "a {b}", "{\\f0\\fs24 a \\{b\\}}");
        add("two lines", "a\nb", "{\\f0\\fs24 a}\n\\par\\plain {\\f0\\fs24 b}");
        add("ends with a line feed", "a\n", "{\\f0\\fs24 a}\n\\par\\plain \\f0\\fs24");
        add("looks like HTML", "<b>a</b>", "{\\f0\\fs24 <b>a</b>}");
        add("no export", "<$p>", "{\\f0\\fs24 <$p>}");
    }

    void textToRtfInAFont()
    {
        const QFont font("Quibble Serif"_s, 14);
        QCOMPARE(wellFormed(ORVTextRtf::textToRtf("a\nb"_s, &font)),
                 documentHead(serifEntry()) + firstParagraph()
                     + "{\\f0\\fs28 a}\n\\par\\plain {\\f0\\fs28 b}}");
    }
};

ORV_TEST("inmemory_writing", TestInMemoryWriting, QGuiApplication)
#include "inmemorywriting.moc"
