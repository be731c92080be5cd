#include "ORVRtfProperties.h"
#include "ORVTextRtf.h"
#include "ORVTextRtfWriter.h"
#include "interchangehelpers.h"
#include "runhelpers.h"
#include "tabletesthelpers.h"
#include "testsupport.h"

#include <QTextList>

using namespace ORVRtfProperty;
using namespace rtftest;

namespace {

/*! A mark in the text, with the properties of the note in its format. */
struct Mark {
    QString text;
    QTextCharFormat format;

    /*! The note's content, as structurehelpers.h has it. */
    QString content() const
    {
        const Reading reading = read(format.property(NoteContent).toByteArray());
        return reading.ok ? contentOf(*reading.document) : QLatin1String("damaged");
    }
};

QList<Mark> marksIn(const QTextDocument& document)
{
    QList<Mark> marks;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().hasProperty(NoteNumber))
                marks.append({it.fragment().text(), it.fragment().charFormat()});
        }
    }
    return marks;
}

/*! "kind number mark: content" of each note, separated by "; ". */
QString notesIn(const QTextDocument& document)
{
    QStringList notes;
    const QList<Mark> marks = marksIn(document);
    for (const Mark& mark : marks) {
        const bool isComment = mark.format.boolProperty(AnnotationAnchor);
        const bool isFootnote = mark.format.boolProperty(FootnoteAnchor);
        QString kind = QLatin1String(isComment ? "comment" : isFootnote ? "footnote" : "none");
        if (mark.format.boolProperty(EndnoteAnchor))
            kind.replace(QLatin1String("foot"), QLatin1String("end"));
        notes << QString::fromLatin1("%1 %2 %3: %4")
                     .arg(kind)
                     .arg(mark.format.intProperty(NoteNumber))
                     .arg(mark.text, mark.content());
    }
    return notes.join(QLatin1String("; "));
}

QByteArray footnote(const QByteArray& content)
{
    return "{\\super\\chftn{\\footnote\\pard\\plain{\\super\\chftn}" + content + "}}";
}

QByteArray written(const QTextDocument& document, bool exporting)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&buffer);
    writer.setExportingMode(exporting);
    writer.write(&document, false);
    return bytes;
}

} // namespace

/*! Notes stand at their mark and not in the sentence. */
class TestInterchangeNotes : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(notes)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QString& notes) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
            QCOMPARE(notesIn(*reading.document), notes);
        });
        add("footnote", "a" + footnote("N") + "b", "a1b", "footnote 1 1: N");
        add("two", "a" + footnote("N") + "b" + footnote("M") + "c", "a1b2c",
            "footnote 1 1: N; footnote 2 2: M");
        add("equal neighbours", "a" + footnote("N") + footnote("N"), "a12",
            "footnote 1 1: N; footnote 2 2: N");
        add("several paragraphs", "a" + footnote("N\\par M\\par\\par O"), "a1", "footnote 1 1: N|M||O");
        add("end of the last paragraph", "a" + footnote("N\\par") + "b", "a1b", "footnote 1 1: N");
        add("end of the last paragraph in a group", "a" + footnote("{N\\par}") + "b", "a1b",
            "footnote 1 1: N");
        add("nothing in it", "a" + footnote("") + "b", "a1b", "footnote 1 1: ");
        add("mark in front of the group", "a{\\super\\chftn}{\\*\\footnote\\chftn\\~\\plain\\pard N}b", "a1b",
            "footnote 1 1: N");
        add("mark and tab", "a{\\super\\chftn}{\\footnote{\\chftn}\\tab N}b", "a1b", "footnote 1 1: N");
        add("no mark in the note", "a{\\super\\chftn}{\\footnote  N}b", "a1b", "footnote 1 1:  N");
        add("mark in the note only", "a{\\footnote\\chftn N}b", "a1b", "footnote 1 1: N");
        add("no mark anywhere", "a{\\footnote N}b", "a1b", "footnote 1 1: N");
        add("endnote", "a{\\super\\chftn{\\footnote\\ftnalt\\chftn N}}", "ai", "endnote 1 i: N");
        add("kinds count apart",
            "a" + footnote("N") + "{\\footnote\\ftnalt O}{\\*\\annotation C}" + footnote("M")
                + "{\\footnote\\ftnalt P}{\\*\\annotation D}",
            "a1i12ii2",
            "footnote 1 1: N; endnote 1 i: O; comment 1 1: C; footnote 2 2: M; endnote 2 ii: P; comment 2 2: "
            "D");
        add("comment", "a\\chatn{\\*\\annotation C}b", "a1b", "comment 1 1: C");
        add("range of a comment",
            "a{\\*\\atrfstart 7}b{\\*\\atrfend 7}{\\chatn{\\*\\annotation{\\*\\atnref 7}C}}c", "ab1c",
            "comment 1 1: C");
        add("in a note", "a" + footnote("N" + footnote("M") + "O") + "b", "a1b", "footnote 1 1: NMO");
        add("in a cell", "\\trowd\\cellx4000\\pard\\intbl a" + footnote("N") + "b\\cell\\row\\pard c",
            "\na1b\nc", "footnote 1 1: N");
        // As notes are stored, an empty paragraph stands behind a table.
        add("table in it", "a" + footnote("\\trowd\\cellx500\\cellx900 N\\cell M\\cell\\row\\pard O") + "b",
            "a1b", "footnote 1 1: |{2: N, M}||O");
        add("table in it, in a cell",
            "\\trowd\\cellx4000\\pard\\intbl a" + footnote("\\trowd\\cellx500 N\\cell\\row\\pard O")
                + "b\\cell\\row\\pard c",
            "\na1b\nc", "footnote 1 1: |{1: N}||O");
        add("row that goes on behind its group", "a" + footnote("\\trowd\\cellx500 N") + "b\\par c", "a1b\nc",
            "footnote 1 1: |{1: N}||");
        add("in a link", "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt a" + footnote("N") + "b}}c",
            "a1bc", "footnote 1 1: N");
        add("in a header", "{\\header a" + footnote("N") + "b}c", "c", "");
        add("hidden", "a{\\v" + footnote("N") + "}b", "ab", "");
        add("deleted", "a{\\deleted" + footnote("N") + "}b" + footnote("M"), "ab1", "footnote 1 1: M");
        add("hidden text in it", "a" + footnote("N{\\v O}M"), "a1", "footnote 1 1: NM");
        add("in skipped groups", "{\\info{\\footnote N}}{\\*\\unknown{\\footnote M}}a", "a", "");
        add("text that waits", "a\\'e9{\\footnote\\'e8}\\'ea", "aé1ê", "footnote 1 1: è");
        add("lead byte in front", "\\ansicpg932 a\\'93{\\footnote N}b", "a\ufffd1b", "footnote 1 1: N");
        add("first in the document", footnote("N") + "a", "1a", "footnote 1 1: N");
        add("in a paragraph of its own", "a\\par" + footnote("N") + "\\par b", "a\n1\nb", "footnote 1 1: N");
        add("link in it", "a" + footnote("{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt N}}"), "a1",
            "footnote 1 1: N");
        add("word without a group", "a\\footnote N", "a1", "footnote 1 1: N");
        add("two words in a group", "a{\\footnote N\\footnote M}b", "a1b", "footnote 1 1: NM");
    }

    /*! Marks that the author has chosen. */
    ORV_ROWS(ownMarks)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QString& notes) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.text(), text);
            QCOMPARE(notesIn(*reading.document), notes);
        });
        add("in the group", "a{\\super *{\\footnote\\pard\\plain{\\super *} N}}b", "a*b", "footnote 0 *: N");
        add("in front of the group", "a{\\super *}{\\footnote *N}b", "a*b", "footnote 0 *: N");
        add("endnote", "a{\\super ${\\*\\footnote\\ftnalt $\\pard\\plain N}}b", "a$b", "endnote 0 $: N");
        add("several characters", "a{\\super **{\\footnote{\\super **}N}}b", "a**b", "footnote 0 **: N");
        add("does not count", "a{\\super *{\\footnote *N}}" + footnote("M"), "a*1",
            "footnote 0 *: N; footnote 1 1: M");
        add("raised by half-points", "a{\\up6 *{\\footnote *N}}b", "a*b", "footnote 0 *: N");
        add("not in the note", "x{\\super 2}{\\footnote N}", "x21", "footnote 1 1: N");
        add("with a number behind it", "x{\\super 2\\chftn}{\\footnote 2N}", "x21", "footnote 1 1: 2N");
        add("comment", "x{\\super *}{\\*\\annotation *C}", "x*1", "comment 1 1: *C");
        add("text between", "x{\\super *}y{\\footnote *N}", "x*y1", "footnote 1 1: *N");
        add("another paragraph", "x{\\super *}\\par{\\footnote *N}", "x*\n1", "footnote 1 1: *N");
        add("another page", "x{\\super *}\\page{\\footnote *N}", "x*\n1", "footnote 1 1: *N");
        add("another cell",
            "\\trowd\\cellx4000\\cellx8000\\pard\\intbl x{\\super *}\\cell{\\footnote *N}\\cell\\row\\pard y",
            "\nx*\n1\ny", "footnote 1 1: *N");
        add("behind a row", "\\trowd\\cellx4000\\pard\\intbl x{\\super *}\\cell\\row\\pard{\\footnote *N}",
            "\nx*\n1", "footnote 1 1: *N");
        add("blank in front", "x{\\super  *}{\\footnote *N}", "x *", "footnote 0 *: N");
        add("longest", "x{\\super 1234567890123456}{\\footnote 1234567890123456N}", "x1234567890123456",
            "footnote 0 1234567890123456: N");
        add("too long", "x{\\super 12345678901234567}{\\footnote 12345678901234567N}", "x123456789012345671",
            "footnote 1 1: 12345678901234567N");
        add("too long in parts", "x{\\super 1234567890{\\b 1234567890}}{\\footnote 12345678901234567890N}",
            "x123456789012345678901", "footnote 1 1: 12345678901234567890N");
    }

    ORV_ROWS(numbers)
    {
        const Rows add([](const QByteArray& words, const QString& marks) {
            const QByteArray notes =
                "{\\footnote N}{\\footnote N}{\\footnote\\ftnalt N}{\\footnote\\ftnalt N}";
            QCOMPARE(importedText(words + " " + notes), marks);
        });
        add("nothing stated", "\\ftnbj", "12iii");
        add("decimal", "\\ftnnar\\aftnnar", "1212");
        add("lower letters", "\\ftnnalc\\aftnnalc", "abab");
        add("upper letters", "\\ftnnauc\\aftnnauc", "ABAB");
        add("lower roman", "\\ftnnrlc\\aftnnrlc", "iiiiii");
        add("upper roman", "\\ftnnruc\\aftnnruc", "IIIIII");
        add("symbols", "\\ftnnchi\\aftnnchi", "*†*†");
        add("of a section", "\\sectd\\sftnnauc\\saftnnar", "AB12");
        add("starts", "\\ftnstart5\\aftnstart9", "56ixx");
        add("start of symbols", "\\ftnnchi\\ftnstart4", "§**iii");
        add("start below 1", "\\ftnstart0\\aftnstart-7", "12iii");
    }

    void mark()
    {
        const Reading reading =
            importBody("{\\fonttbl{\\f0 Arial;}}\\f0\\fs30\\b a{\\super\\chftn{\\footnote\\pard\\plain N}}b");
        const QList<Mark> marks = marksIn(*reading.document);
        QCOMPARE(marks.size(), 1);
        const QTextCharFormat format = marks.at(0).format;
        QCOMPARE(format.verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(format.fontPointSize(), 15.0);
        QCOMPARE(format.fontWeight(), int(QFont::Bold));
        QCOMPARE(format.boolProperty(FootnoteAnchor), true);
        QCOMPARE(format.boolProperty(HasNoteContent), true);
        QVERIFY(!format.hasProperty(EndnoteAnchor));
        QVERIFY(!format.hasProperty(AnnotationAnchor));
        QVERIFY(!format.hasProperty(InFootnote));
        QVERIFY(!format.isAnchor());
        QCOMPARE(format.intProperty(NoteNumber), 1);
        QVERIFY(!format.hasProperty(NoteAuthor));
        QVERIFY(!format.hasProperty(NoteInitials));
        QVERIFY(!format.hasProperty(NoteDate));
    }

    void raisedMarkOfALinkIsNoLink()
    {
        const Reading reading =
            importBody("{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt a{\\up6{\\footnote N}}b}}");
        const QTextCharFormat format = marksIn(*reading.document).value(0).format;
        QVERIFY(!format.isAnchor());
        QVERIFY(!format.hasProperty(BaselineShift));
        QCOMPARE(format.verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(formatOf(*reading.document, QLatin1String("b")).anchorHref(), QLatin1String("x"));
    }

    ORV_ROWS(comments)
    {
        const Rows add([](const QByteArray& body, const QString& initials, const QString& author,
                          const QDateTime& date) {
            const Reading reading = importBody(body);
            const QTextCharFormat format = marksIn(*reading.document).value(0).format;
            QCOMPARE(format.boolProperty(AnnotationAnchor), true);
            QCOMPARE(format.stringProperty(NoteInitials), initials);
            QCOMPARE(format.stringProperty(NoteAuthor), author);
            QCOMPARE(format.property(NoteDate).toDateTime(), date);
            QCOMPARE(format.hasProperty(NoteDate), date.isValid());
        });
        const QByteArray author = "a{\\*\\atnid JD}{\\*\\atnauthor J\\'e9 Doe}\\chatn";
        // Minutes 11, hours 10, day 9, month 8, year 2020 - 1900 = 120, Sunday 0.
        const QByteArray packed = QByteArray::number(11 + (10 << 6) + (9 << 11) + (8 << 16) + (120 << 20));
        const QDateTime date(QDate(2020, 8, 9), QTime(10, 11));
        add("nothing", "a\\chatn{\\*\\annotation C}", "", "", QDateTime());
        add("author", author + "{\\*\\annotation C}", "JD", "Jé Doe", QDateTime());
        add("date", author + "{\\*\\annotation{\\*\\atndate " + packed + "}C}", "JD", "Jé Doe", date);
        add("date without a blank", author + "{\\*\\annotation{\\*\\atndate" + packed + "}C}", "JD", "Jé Doe",
            QDateTime());
        // Friday, 5.
        const quint32 friday = 11u + (10u << 6) + (14u << 11) + (8u << 16) + (120u << 20) + (5u << 29);
        add("date with 32 bits",
            "a{\\*\\annotation{\\*\\atndate " + QByteArray::number(qint32(friday)) + "}C}", "", "",
            date.addDays(5));
        add("date that is none", "a{\\*\\annotation{\\*\\atndate 0}C}", "", "", QDateTime());
        add("date of other programs", author + "{\\*\\annotation{\\*\\atndate02-02-2020}C}", "JD", "Jé Doe",
            QDateTime());
        add("time in words", author + "{\\*\\annotation{\\*\\atntime\\yr2020\\mo8\\dy9\\hr10\\min11\\sec0}C}",
            "JD", "Jé Doe", date);
        add("time in front", author + "{\\*\\atntime\\yr2020\\mo8\\dy9\\hr10\\min11}{\\*\\annotation C}",
            "JD", "Jé Doe", date);
        add("date in front", author + "{\\*\\atndate " + packed + "}{\\*\\annotation C}", "JD", "Jé Doe",
            date);
        add("day that is none", author + "{\\*\\annotation{\\*\\atntime\\yr2020\\mo2\\dy30}C}", "JD",
            "Jé Doe", QDateTime());
    }

    void authorsAreThoseOfTheirComments()
    {
        const Reading reading = importBody(
            "{\\*\\atnauthor A}{\\*\\atntime\\yr2020\\mo8\\dy9}{\\*\\annotation C}{\\*\\annotation D}"
            "{\\*\\atnauthor B}{\\*\\annotation E}");
        QStringList authors;
        const QList<Mark> marks = marksIn(*reading.document);
        for (const Mark& mark : marks)
            authors << mark.format.stringProperty(NoteAuthor);
        QVERIFY(marks.value(0).format.hasProperty(NoteDate));
        QVERIFY(!marks.value(1).format.hasProperty(NoteDate));
        QCOMPARE(authors,
                 QStringList() << "A"
                               << ""
                               << "B");
    }

    /*! Paragraphs, tables, lists and formats of a note are its own. */
    void stateAroundANote()
    {
        const Reading reading = importBody("\\li720\\qr\\b a"
                                           "{\\footnote\\qc\\li1440\\i N\\par M}"
                                           "b\\par c");
        const QTextBlock first = reading.document->begin();
        QCOMPARE(first.text(), QLatin1String("a1b"));
        QCOMPARE(first.blockFormat().alignment(), Qt::AlignRight);
        QCOMPARE(first.blockFormat().doubleProperty(LeftIndent), 36.0);
        const QTextCharFormat behind = formatOf(*reading.document, QLatin1String("b"));
        QCOMPARE(behind.fontWeight(), int(QFont::Bold));
        QVERIFY(!behind.fontItalic());

        const Reading note =
            read(marksIn(*reading.document).value(0).format.property(NoteContent).toByteArray());
        const QTextBlock paragraph = note.document->begin();
        QCOMPARE(paragraph.blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(paragraph.blockFormat().doubleProperty(LeftIndent), 72.0);
        QVERIFY(paragraph.begin().fragment().charFormat().fontItalic());
        QVERIFY(paragraph.begin().fragment().charFormat().fontWeight() < QFont::Bold);
        QCOMPARE(paragraph.next().blockFormat().alignment(), Qt::AlignHCenter);
    }

    void listInANote()
    {
        const Reading reading =
            import("{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid9}}"
                   "{\\*\\listoverridetable{\\listoverride\\listid9\\ls1}}"
                   "\\pard\\ls1 a"
                   + footnote("\\pard\\ls1 N\\par M") + "\\par b}");
        const Reading note =
            read(marksIn(*reading.document).value(0).format.property(NoteContent).toByteArray());
        QVERIFY(note.document->begin().textList());
        QCOMPARE(note.document->begin().textList()->count(), 2);
        QVERIFY(reading.document->begin().textList());
        QCOMPARE(reading.document->begin().textList()->count(), 2);
    }

    void pictureInANote()
    {
        const Reading reading = importBody(
            "a" + footnote("{\\pict\\pngblip " + encoded(solidImage(1, 1, Qt::red)).toHex() + "}"));
        const Reading note =
            read(marksIn(*reading.document).value(0).format.property(NoteContent).toByteArray());
        const QTextCharFormat format = note.document->begin().begin().fragment().charFormat();
        QVERIFY(format.isImageFormat());
        QVERIFY(!note.document->resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()))
                     .isNull());
    }

    /*! The right edge of a paragraph depends on the page, which is that of the document. */
    void pageOfANote()
    {
        const Reading reading =
            importBody("\\paperw10000\\margl1000\\margr1000 a" + footnote("\\pard\\ri400 N"));
        const Reading note =
            read(marksIn(*reading.document).value(0).format.property(NoteContent).toByteArray());
        QCOMPARE(note.document->begin().blockFormat().doubleProperty(RightIndent), 380.0);
    }

    void nesting()
    {
        QByteArray body = "a";
        for (int i = 0; i < 40; ++i)
            body += "{\\footnote N" + QByteArray::number(i) + " ";
        body += QByteArray(40, '}');
        const Reading reading = importBody(body);
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.text(), QLatin1String("a1"));
        QVERIFY(notesIn(*reading.document).startsWith(QLatin1String("footnote 1 1: N0 N1 N2 ")));
    }

    ORV_ROWS(inputEndsWithinANote)
    {
        const Rows add([](const QByteArray& rtf, const QString& text, const QString& notes) {
            const Reading reading = import(rtf);
            QCOMPARE(reading.status, 2);
            QCOMPARE(reading.text(), text);
            QCOMPARE(notesIn(*reading.document), notes);
        });
        add("in its text", "{\\rtf1 a{\\footnote N", "a1", "footnote 1 1: N");
        add("in a cell of it", "{\\rtf1 a{\\footnote\\trowd\\cellx500 N", "a1", "footnote 1 1: |{1: N}||");
        add("in a note in it", "{\\rtf1 a{\\footnote N{\\footnote M", "a1", "footnote 1 1: NM");
        add("in its mark", "{\\rtf1 a{\\super\\chftn{\\footnote{\\super\\chftn ", "a1", "footnote 1 1: ");
    }

    /*! What is written is read with the same notes. */
    ORV_ROWS(writing)
    {
        const Rows add([](const QByteArray& body, const QString& rtf) {
            const Reading reading = importBody(body);
            for (const bool exporting : {false, true}) {
                const QByteArray bytes = written(*reading.document, exporting);
                QVERIFY2(bytes.contains(rtf.toLatin1()), bytes.constData());
                const Reading again = import(bytes);
                QCOMPARE(again.status, 0);
                QCOMPARE(again.text(), reading.text());
                QCOMPARE(notesIn(*again.document), notesIn(*reading.document));
            }
        });
        add("footnote", "a" + footnote("N") + "b", "\\chftn{\\footnote\\pard\\plain {\\super\\chftn");
        add("endnote", "a{\\footnote\\ftnalt N}b", "\\chftn{\\footnote\\ftnalt\\pard\\plain {\\super\\chftn");
        add("equal neighbours", "a" + footnote("N") + footnote("N"), "\\chftn{\\footnote");
        add("own mark", "a{\\super *{\\footnote *N}}b", "*{\\footnote\\pard\\plain {\\super");
        add("own mark of an endnote", "a{\\super *{\\footnote\\ftnalt *N}}b",
            "*{\\footnote\\ftnalt\\pard\\plain");
        add("comment", "a{\\*\\annotation C}b", "\\chatn{\\*\\annotation");
        add("several paragraphs", "a" + footnote("N\\par M") + "b\\par c", "\\chftn{\\footnote");
        add("in a cell", "\\trowd\\cellx4000\\pard\\intbl a" + footnote("N") + "b\\cell\\row\\pard c",
            "\\chftn{\\footnote");
        add("table in it", "a" + footnote("\\trowd\\cellx500\\cellx900 N\\cell M\\cell\\row\\pard O") + "b",
            "\\chftn{\\footnote");
        add("in a note", "a" + footnote("N" + footnote("M") + "O") + "b", "\\chftn{\\footnote");
    }

    void writingAComment()
    {
        const QByteArray packed = QByteArray::number(11 + (10 << 6) + (9 << 11) + (8 << 16) + (120 << 20));
        const QByteArray comment =
            "a{\\*\\atnid JD}{\\*\\atnauthor Jo Doe}\\chatn{\\*\\annotation{\\*\\atndate " + packed + "}C}";
        const QByteArray bytes = written(*importBody(comment).document, true);
        QVERIFY2(bytes.contains("{\\*\\atnid JD}{\\*\\atnauthor Jo "
                                "Doe}{\\f0\\fs24\\super\\chatn{\\*\\annotation{\\*\\atndate "
                                + packed + "}"),
                 bytes.constData());
        QVERIFY(!bytes.contains("atrfstart"));
    }

    void authorsAreWritten()
    {
        const Reading again =
            import(written(*importBody("a{\\*\\atnauthor J\\'e9}{\\*\\annotation C}").document, true));
        QCOMPARE(marksIn(*again.document).value(0).format.stringProperty(NoteAuthor),
                 QString::fromUtf8("Jé"));
    }

    /*! The number is not written, but how it looks is. */
    ORV_ROWS(formatOfAWrittenMark)
    {
        const Rows add([](const QByteArray& body, qreal size, bool isBold) {
            const Reading reading = importBody("\\fs24 a{" + body + "}b");
            for (const bool exporting : {false, true}) {
                const Reading again = import(written(*reading.document, exporting));
                const QTextCharFormat format = marksIn(*again.document).value(0).format;
                QCOMPARE(format.fontPointSize(), size);
                QCOMPARE(format.fontWeight() == QFont::Bold, isBold);
                QCOMPARE(formatOf(*again.document, QLatin1String("b")).fontPointSize(), 12.0);
                QCOMPARE(notesIn(*again.document), notesIn(*reading.document));
            }
        });
        add("footnote", "\\fs40\\b" + footnote("N"), 20.0, true);
        add("endnote", "\\fs18{\\footnote\\ftnalt N}", 9.0, false);
        add("own mark", "\\fs40{\\super *{\\footnote *N}}", 20.0, false);
        add("comment", "\\fs18\\b{\\chatn{\\*\\annotation C}}", 9.0, true);
    }

    /*! Comments can be written as footnotes, with the numbers that those have. */
    void writingAsAnotherKind()
    {
        const Reading reading = importBody("a{\\*\\annotation C}b" + footnote("N"));
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        ORVTextRtfWriter writer(&buffer);
        writer.setAnnotationDestination(ORVTextRtf::ExportAsFootnote);
        writer.write(reading.document.data(), false);
        const Reading again = import(bytes);
        QCOMPARE(again.text(), QLatin1String("a1b2"));
        QCOMPARE(notesIn(*again.document), QLatin1String("footnote 1 1: C; footnote 2 2: N"));
    }

    void twoReadsCountAnew()
    {
        QBuffer buffer;
        buffer.setData("{\\rtf1 a{\\footnote N}}");
        buffer.open(QIODevice::ReadOnly);
        ORVTextRtfReader reader(&buffer);
        reader.setInterchange(true);
        for (int i = 0; i < 2; ++i) {
            QTextDocument document;
            buffer.seek(0);
            QVERIFY(reader.read(&document));
            QCOMPARE(document.toPlainText(), QLatin1String("a1"));
        }
    }
};

ORV_TEST("interchange_notes", TestInterchangeNotes, QGuiApplication)
#include "notes.moc"
