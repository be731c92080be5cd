#include "DocumentInfo.h"
#include "HtmlExport.h"
#include "TextExport.h"
#include "VisibleDocument.h"
#include "testsupport.h"

namespace {

QTextCharFormat flagged(int property)
{
    QTextCharFormat format;
    format.setProperty(property, true);
    return format;
}

QTextCharFormat anchorWith(int flag, const QByteArray& content)
{
    QTextCharFormat format = flagged(flag);
    format.setProperty(ORVRtfProperty::NoteContent, content);
    return format;
}

QTextCharFormat linkTo(const QString& target)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(target);
    return format;
}

QImage redSquare()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

/*! What the tool says of documents, and makes of them, whether the reader can produce them or not. */
class TestToolDocuments : public QObject {
    Q_OBJECT

private slots:
    void emptyDocument()
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

    ORV_ROWS(words)
    {
        const Rows add([](const QString& content, int words, int characters) {
            QTextDocument document;
            document.setPlainText(content);
            const DocumentInfo info(document);
            QCOMPARE(info.words, words);
            QCOMPARE(info.characters, characters);
        });
        add("one word", "word", 1, 4);
        add("several spaces", "  two   words ", 2, 14);
        add("tabs and no-break spaces", "a\tb\u00a0c", 3, 5);
        add("paragraphs", "a\nb", 2, 2);
        add("hyphens and apostrophes", "it's half-asleep", 2, 16);
        add("beyond U+FFFF", "\U0001f600\U0001f601 x", 2, 4);
    }

    void noteRunsAreNotes()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("Text"_s, {});
        cursor.insertText("first "_s, flagged(ORVRtfProperty::InFootnote));
        QTextCharFormat bold = flagged(ORVRtfProperty::InFootnote);
        bold.setFontWeight(QFont::Bold);
        cursor.insertText("still first"_s, bold);
        cursor.insertText("Text"_s, {});
        cursor.insertText("second"_s, flagged(ORVRtfProperty::InFootnote));
        cursor.insertText("remark"_s, flagged(ORVRtfProperty::InAnnotation));
        const DocumentInfo info(document);
        QCOMPARE(info.footnotes, 2);
        QCOMPARE(info.annotations, 1);
    }

    void noteOverParagraphsIsOneNote()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("first paragraph\nsecond paragraph"_s, flagged(ORVRtfProperty::InFootnote));
        QCOMPARE(DocumentInfo(document).paragraphs, 2);
        QCOMPARE(DocumentInfo(document).footnotes, 1);
    }

    void anchorsWithContentAreNotes()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("a"_s, anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}"));
        QTextCharFormat same = anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}");
        same.setFontItalic(true);
        cursor.insertText("b"_s, same);
        cursor.insertText("c"_s, anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 Two}"));
        cursor.insertText("d"_s, anchorWith(ORVRtfProperty::AnnotationAnchor, "{\\rtf1 Three}"));
        cursor.insertText("e"_s, flagged(ORVRtfProperty::AnnotationAnchor));
        const DocumentInfo info(document);
        QCOMPARE(info.footnotes, 2);
        QCOMPARE(info.annotations, 1);
    }

    ORV_ROWS(links)
    {
        const Rows add([](const QStringList& targets, const QStringList& linkTexts) {
            QTextDocument document;
            QTextCursor cursor(&document);
            for (int i = 0; i < targets.size(); ++i) {
                if (targets.at(i) == "\n"_s) {
                    cursor.insertBlock();
                    continue;
                }
                QTextCharFormat format = targets.at(i).isEmpty() ? QTextCharFormat() : linkTo(targets.at(i));
                format.setFontPointSize(10 + i);
                cursor.insertText("%1."_s.arg(i), format);
            }
            const DocumentInfo info(document);
            QStringList found;
            for (const DocumentInfo::Link& link : info.links)
                found << link.text;
            QCOMPARE(found, linkTexts);
        });
        add("none", {QString(), QString()}, {});
        add("one of two formats", {"x"_s, "x"_s}, {"0.1."_s});
        add("side by side", {"x"_s, "y"_s}, {"0."_s, "1."_s});
        add("same target twice", {"x"_s, QString(), "x"_s}, {"0."_s, "2."_s});
        add("ends with its paragraph", {"x"_s, "\n"_s, "x"_s}, {"0."_s, "2."_s});
    }

    // Each target has its number as text, in a format of its own; a line feed is a paragraph end.
    void tablesWithinTablesCount()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextTable* outer = cursor.insertTable(2, 2);
        outer->cellAt(0, 0).firstCursorPosition().insertTable(1, 1);
        cursor.movePosition(QTextCursor::End);
        cursor.insertTable(1, 3);
        QCOMPARE(DocumentInfo(document).tables, 3);
    }

    void listsCountOnce()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextList* list = cursor.createList(QTextListFormat::ListDisc);
        cursor.insertText("item\nitem"_s);
        cursor.insertBlock(QTextBlockFormat());
        cursor.createList(QTextListFormat::ListDecimal);
        cursor.insertBlock(QTextBlockFormat());
        list->add(cursor.block());
        QCOMPARE(DocumentInfo(document).lists, 2);
    }

    // Qt makes one fragment of pictures that have the same format.
    void picturesSideBySide()
    {
        QTextDocument document;
        document.addResource(QTextDocument::ImageResource, QUrl("name"_s), redSquare());
        QTextImageFormat format;
        format.setName("name"_s);
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

    void plainTextOfTable()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("before"_s);
        QTextTable* table = cursor.insertTable(2, 2);
        const char* const cells[] = {"A", "B", "C", "D"};
        for (int i = 0; i < 4; ++i)
            table->cellAt(i / 2, i % 2).firstCursorPosition().insertText(QLatin1String(cells[i]));
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("after"_s);
        QCOMPARE(documentToPlainText(document), "before\nA\nB\nC\nD\nafter\n"_b);
    }

    // A name in a document must not make the tool read a file.
    void picturesOfTheDocumentOnly()
    {
        const QTemporaryDir dir;
        const QString path = dir.filePath("picture.png"_s);
        QVERIFY(redSquare().save(path));
        QTextImageFormat format;
        format.setName(path);
        QTextDocument document;
        QTextCursor(&document).insertImage(format);
        const QByteArray html = documentToHtml(document);
        QCOMPARE(html.count("<img "), 1);
        QCOMPARE(html.count("data:"), 0);
    }

    void outlinedTextIsVisibleInHtml()
    {
        QTextCharFormat format;
        format.setForeground(Qt::transparent);
        format.setTextOutline(QPen(QColor(0, 128, 0)));
        QTextDocument document;
        QTextCursor(&document).insertText("outlined"_s, format);
        const QByteArray html = documentToHtml(document);
        QVERIFY2(html.contains("color:#008000;\">outlined<"), html.constData());
    }

    // A browser takes a number without a unit for a multiple of the line.
    void exactLineHeightsInHtmlArePixels()
    {
        const QString written = "line-height:7; -qt-line-height-type: fixed; style=\""_s;
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

    /*! The file states its encoding, whatever its title is. */
    ORV_ROWS(titleOfHtml)
    {
        const Rows add([](const QString& title, const QByteArray& element) {
            QTextDocument document;
            document.setPlainText("text"_s);
            document.setMetaInformation(QTextDocument::DocumentTitle, title);
            const QByteArray html = documentToHtml(document);
            const QByteArray head = html.left(html.indexOf("</head>"));
            QVERIFY2(head.contains(element), html.constData());
            QCOMPARE(html.count("<title>"), 1);
            QCOMPARE(head.count("<meta charset=\"utf-8\" />"), 1);
        });
        add("plain", "A title", "<title>A title</title>");
        add("about encodings", "Of charset=utf-8", "<title>Of charset=utf-8</title>");
        add("like HTML", "<head></head></title><b>&",
            "<title>&lt;head&gt;&lt;/head&gt;&lt;/title&gt;&lt;b&gt;&amp;</title>");
        add("like an encoding", "<meta charset=x>", "<title>&lt;meta charset=x&gt;</title>");
    }

    ORV_ROWS(underlinesInHtml)
    {
        const Rows add([](int style, int underlines) {
            QTextCharFormat format;
            format.setProperty(QTextFormat::TextUnderlineStyle, style);
            QTextDocument document;
            QTextCursor(&document).insertText("underlined"_s, format);
            QCOMPARE(int(documentToHtml(document).count("text-decoration: underline")), underlines);
        });
        add("none", int(QTextCharFormat::NoUnderline), 0);
        add("single", int(QTextCharFormat::SingleUnderline), 1);
        add("dashes", int(QTextCharFormat::DashUnderline), 1);
        add("wave", int(QTextCharFormat::WaveUnderline), 1);
    }

    // Headings are often items of a list that shows no number.
    void listItemsWithoutMarkerInHtml()
    {
        ORVTextListLevel unmarked;
        ORVTextListLevel marked;
        marked.setText("%0."_s);
        QTextListFormat format;
        ORVTextListFormat::setLevels(format, {unmarked, marked});
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextList* list = cursor.createList(format);
        cursor.insertText("heading\nitem"_s);
        ORVTextListFormat::setBlockLevel(list, document.begin(), 0);
        ORVTextListFormat::setBlockLevel(list, document.lastBlock(), 1);
        const QByteArray html = documentToHtml(document);
        QCOMPARE(html.count("<li"), 1);
        QVERIFY2(html.contains("heading</p>"), html.constData());
        QVERIFY2(html.contains("item</li>"), html.constData());
    }

    // Qt hides the empty paragraph in front of a table.
    void hiddenListItemShowsNoMarker()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.createList(QTextListFormat::ListDecimal);
        cursor.insertText("first"_s);
        cursor.insertBlock();
        const QTextBlock hidden = cursor.block();
        cursor.insertTable(1, 1);
        QVERIFY(hidden.textList());
        makeVisible(document);
        QVERIFY(!hidden.textList());
        QVERIFY(document.begin().textList());
    }
};

ORV_TEST("tool_documents", TestToolDocuments, QCoreApplication)
#include "documents.moc"
