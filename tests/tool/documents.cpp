#include "DocumentInfo.h"
#include "HtmlExport.h"
#include "TextExport.h"
#include "VisibleDocument.h"

#include <ORVRtfProperties.h>
#include <ORVTextListFormat.h>

#include <QImage>
#include <QPen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

/*! What the tool says of documents, and makes of them, whether the reader can produce them or not. */
class tst_tool_documents : public QObject {
    Q_OBJECT

private slots:
    void emptyDocument();
    void words_data();
    void words();
    void noteRunsAreNotes();
    void noteOverParagraphsIsOneNote();
    void anchorsWithContentAreNotes();
    void links_data();
    void links();
    void tablesWithinTablesCount();
    void listsCountOnce();
    void picturesSideBySide();
    void plainTextOfTable();
    void picturesOfTheDocumentOnly();
    void outlinedTextIsVisibleInHtml();
    void exactLineHeightsInHtmlArePixels();
    void titleOfHtml_data();
    void titleOfHtml();
    void underlinesInHtml_data();
    void underlinesInHtml();
    void listItemsWithoutMarkerInHtml();
    void hiddenListItemShowsNoMarker();
};

static QTextCharFormat flagged(int property)
{
    QTextCharFormat format;
    format.setProperty(property, true);
    return format;
}

static QTextCharFormat anchorWith(int flag, const QByteArray& content)
{
    QTextCharFormat format = flagged(flag);
    format.setProperty(ORVRtfProperty::NoteContent, content);
    return format;
}

static QTextCharFormat linkTo(const char* target)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(QString::fromLatin1(target));
    return format;
}

static QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

void tst_tool_documents::emptyDocument()
{
    const QTextDocument document;
    const DocumentInfo info(document);
    QCOMPARE(info.paragraphs, 1);
    QCOMPARE(info.words, 0);
    QCOMPARE(info.characters, 0);
    QCOMPARE(info.fonts, QStringList());
    QCOMPARE(info.tables, 0);
    QCOMPARE(documentToPlainText(document), QByteArray());
}

void tst_tool_documents::words_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("words");
    QTest::addColumn<int>("characters");

    QTest::newRow("one word") << "word" << 1 << 4;
    QTest::newRow("several spaces") << "  two   words " << 2 << 14;
    QTest::newRow("tabs and no-break spaces") << QString::fromUtf8("a\tb\u00a0c") << 3 << 5;
    QTest::newRow("paragraphs") << "a\nb" << 2 << 2;
    QTest::newRow("hyphens and apostrophes") << "it's half-asleep" << 2 << 16;
    QTest::newRow("beyond U+FFFF") << QString::fromUtf8("\U0001f600\U0001f601 x") << 2 << 4;
}

void tst_tool_documents::words()
{
    QFETCH(QString, content);
    QTextDocument document;
    document.setPlainText(content);
    const DocumentInfo info(document);
    QTEST(info.words, "words");
    QTEST(info.characters, "characters");
}

void tst_tool_documents::noteRunsAreNotes()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(text("Text"), QTextCharFormat());
    cursor.insertText(text("first "), flagged(ORVRtfProperty::InFootnote));
    QTextCharFormat bold = flagged(ORVRtfProperty::InFootnote);
    bold.setFontWeight(QFont::Bold);
    cursor.insertText(text("still first"), bold);
    cursor.insertText(text("Text"), QTextCharFormat());
    cursor.insertText(text("second"), flagged(ORVRtfProperty::InFootnote));
    cursor.insertText(text("remark"), flagged(ORVRtfProperty::InAnnotation));
    const DocumentInfo info(document);
    QCOMPARE(info.footnotes, 2);
    QCOMPARE(info.annotations, 1);
}

void tst_tool_documents::noteOverParagraphsIsOneNote()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(text("first paragraph\nsecond paragraph"), flagged(ORVRtfProperty::InFootnote));
    QCOMPARE(DocumentInfo(document).paragraphs, 2);
    QCOMPARE(DocumentInfo(document).footnotes, 1);
}

void tst_tool_documents::anchorsWithContentAreNotes()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(text("a"), anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}"));
    QTextCharFormat same = anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}");
    same.setFontItalic(true);
    cursor.insertText(text("b"), same);
    cursor.insertText(text("c"), anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 Two}"));
    cursor.insertText(text("d"), anchorWith(ORVRtfProperty::AnnotationAnchor, "{\\rtf1 Three}"));
    cursor.insertText(text("e"), flagged(ORVRtfProperty::AnnotationAnchor));
    const DocumentInfo info(document);
    QCOMPARE(info.footnotes, 2);
    QCOMPARE(info.annotations, 1);
}

void tst_tool_documents::links_data()
{
    QTest::addColumn<QStringList>("targets");
    QTest::addColumn<QStringList>("linkTexts");

    QTest::newRow("none") << QStringList({QString(), QString()}) << QStringList();
    QTest::newRow("one of two formats") << QStringList({text("x"), text("x")}) << QStringList({text("0.1.")});
    QTest::newRow("side by side") << QStringList({text("x"), text("y")})
                                  << QStringList({text("0."), text("1.")});
    QTest::newRow("same target twice")
        << QStringList({text("x"), QString(), text("x")}) << QStringList({text("0."), text("2.")});
    QTest::newRow("ends with its paragraph")
        << QStringList({text("x"), text("\n"), text("x")}) << QStringList({text("0."), text("2.")});
}

// Each target has its number as text, in a format of its own; a line feed is a paragraph end.
void tst_tool_documents::links()
{
    QFETCH(QStringList, targets);
    QFETCH(QStringList, linkTexts);
    QTextDocument document;
    QTextCursor cursor(&document);
    for (int i = 0; i < targets.size(); ++i) {
        if (targets.at(i) == text("\n")) {
            cursor.insertBlock();
            continue;
        }
        QTextCharFormat format =
            targets.at(i).isEmpty() ? QTextCharFormat() : linkTo(targets.at(i).toLatin1().constData());
        format.setFontPointSize(10 + i);
        cursor.insertText(QString::fromLatin1("%1.").arg(i), format);
    }
    const DocumentInfo info(document);
    QStringList found;
    for (const DocumentInfo::Link& link : info.links)
        found << link.text;
    QCOMPARE(found, linkTexts);
}

void tst_tool_documents::tablesWithinTablesCount()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextTable* outer = cursor.insertTable(2, 2);
    outer->cellAt(0, 0).firstCursorPosition().insertTable(1, 1);
    cursor.movePosition(QTextCursor::End);
    cursor.insertTable(1, 3);
    QCOMPARE(DocumentInfo(document).tables, 3);
}

void tst_tool_documents::listsCountOnce()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextList* list = cursor.createList(QTextListFormat::ListDisc);
    cursor.insertText(text("item\nitem"));
    cursor.insertBlock(QTextBlockFormat());
    cursor.createList(QTextListFormat::ListDecimal);
    cursor.insertBlock(QTextBlockFormat());
    list->add(cursor.block());
    QCOMPARE(DocumentInfo(document).lists, 2);
}

// Qt makes one fragment of pictures that have the same format.
void tst_tool_documents::picturesSideBySide()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QTextDocument document;
    document.addResource(QTextDocument::ImageResource, QUrl(text("name")), image);
    QTextImageFormat format;
    format.setName(text("name"));
    QTextCursor cursor(&document);
    cursor.insertImage(format);
    cursor.insertImage(format);
    const DocumentInfo info(document);
    QCOMPARE(info.pictures, 2);
    QCOMPARE(info.characters, 0);
    QCOMPARE(documentToPlainText(document), QByteArray());
    const QByteArray html = documentToHtml(document);
    QCOMPARE(html.count("<img src=\"data:image/png;base64,"), 2);
    QCOMPARE(html.count("<img "), 2);
}

void tst_tool_documents::plainTextOfTable()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(text("before"));
    QTextTable* table = cursor.insertTable(2, 2);
    const char* const cells[] = {"A", "B", "C", "D"};
    for (int i = 0; i < 4; ++i)
        table->cellAt(i / 2, i % 2).firstCursorPosition().insertText(text(cells[i]));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text("after"));
    QCOMPARE(documentToPlainText(document), QByteArray("before\nA\nB\nC\nD\nafter\n"));
}

// A name in a document must not make the tool read a file.
void tst_tool_documents::picturesOfTheDocumentOnly()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(text("picture.png"));
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path));
    QTextImageFormat format;
    format.setName(path);
    QTextDocument document;
    QTextCursor(&document).insertImage(format);
    const QByteArray html = documentToHtml(document);
    QCOMPARE(html.count("<img "), 1);
    QCOMPARE(html.count("data:"), 0);
}

void tst_tool_documents::outlinedTextIsVisibleInHtml()
{
    QTextCharFormat format;
    format.setForeground(Qt::transparent);
    format.setTextOutline(QPen(QColor(0, 128, 0)));
    QTextDocument document;
    QTextCursor(&document).insertText(text("outlined"), format);
    const QByteArray html = documentToHtml(document);
    QVERIFY2(html.contains("color:#008000;\">outlined<"), html.constData());
}

// A browser takes a number without a unit for a multiple of the line.
void tst_tool_documents::exactLineHeightsInHtmlArePixels()
{
    const QString written = text("line-height:7; -qt-line-height-type: fixed; style=\"");
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextBlockFormat format;
    format.setLineHeight(20, QTextBlockFormat::FixedHeight);
    cursor.setBlockFormat(format);
    cursor.insertText(written + written);
    const QByteArray html = documentToHtml(document);
    const QByteArray shown = "line-height:7; -qt-line-height-type: fixed; style=&quot;";
    QVERIFY2(html.contains(shown + shown), html.constData());
    QCOMPARE(html.count("line-height:20px; -qt-line-height-type: fixed;"), 1);
    QCOMPARE(html.count("px; -qt-line-height-type"), 1);
}

void tst_tool_documents::titleOfHtml_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QByteArray>("element");

    QTest::newRow("plain") << "A title" << QByteArray("<title>A title</title>");
    QTest::newRow("about encodings") << "Of charset=utf-8" << QByteArray("<title>Of charset=utf-8</title>");
    QTest::newRow("like HTML") << "<head></head></title><b>&"
                               << QByteArray(
                                      "<title>&lt;head&gt;&lt;/head&gt;&lt;/title&gt;&lt;b&gt;&amp;</title>");
    QTest::newRow("like an encoding")
        << "<meta charset=x>" << QByteArray("<title>&lt;meta charset=x&gt;</title>");
}

/*! Whatever the title is, the file says which encoding it has. */
void tst_tool_documents::titleOfHtml()
{
    QFETCH(QString, title);
    QFETCH(QByteArray, element);
    QTextDocument document;
    document.setPlainText(text("text"));
    document.setMetaInformation(QTextDocument::DocumentTitle, title);
    const QByteArray html = documentToHtml(document);
    const QByteArray head = html.left(html.indexOf("</head>"));
    QVERIFY2(head.contains(element), html.constData());
    QCOMPARE(html.count("<title>"), 1);
    QCOMPARE(head.count("<meta charset=\"utf-8\" />"), 1);
}

void tst_tool_documents::underlinesInHtml_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("underlines");

    QTest::newRow("none") << int(QTextCharFormat::NoUnderline) << 0;
    QTest::newRow("single") << int(QTextCharFormat::SingleUnderline) << 1;
    QTest::newRow("dashes") << int(QTextCharFormat::DashUnderline) << 1;
    QTest::newRow("wave") << int(QTextCharFormat::WaveUnderline) << 1;
}

void tst_tool_documents::underlinesInHtml()
{
    QFETCH(int, style);
    QTextCharFormat format;
    format.setProperty(QTextFormat::TextUnderlineStyle, style);
    QTextDocument document;
    QTextCursor(&document).insertText(text("underlined"), format);
    QTEST(int(documentToHtml(document).count("text-decoration: underline")), "underlines");
}

// Headings are often items of a list that shows no number.
void tst_tool_documents::listItemsWithoutMarkerInHtml()
{
    ORVTextListLevel unmarked;
    ORVTextListLevel marked;
    marked.setText(text("%0."));
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, {unmarked, marked});
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextList* list = cursor.createList(format);
    cursor.insertText(text("heading\nitem"));
    ORVTextListFormat::setBlockLevel(list, document.begin(), 0);
    ORVTextListFormat::setBlockLevel(list, document.lastBlock(), 1);
    const QByteArray html = documentToHtml(document);
    QCOMPARE(html.count("<li"), 1);
    QVERIFY2(html.contains("heading</p>"), html.constData());
    QVERIFY2(html.contains("item</li>"), html.constData());
}

// Qt hides the empty paragraph in front of a table.
void tst_tool_documents::hiddenListItemShowsNoMarker()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.createList(QTextListFormat::ListDecimal);
    cursor.insertText(text("first"));
    cursor.insertBlock();
    const QTextBlock hidden = cursor.block();
    cursor.insertTable(1, 1);
    QVERIFY(hidden.textList());
    makeVisible(document);
    QVERIFY(!hidden.textList());
    QVERIFY(document.begin().textList());
}

QTEST_GUILESS_MAIN(tst_tool_documents)
#include "tst_tool_documents.moc"
