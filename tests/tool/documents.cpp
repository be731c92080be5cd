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

QTextCharFormat linkTo(const char* target)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(QString::fromLatin1(target));
    return format;
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
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

    void words_data()
    {
        const Columns<QString, int, int> add("content", "words", "characters");
        add("one word", "word", 1, 4);
        add("several spaces", "  two   words ", 2, 14);
        add("tabs and no-break spaces", "a\tb\u00a0c", 3, 5);
        add("paragraphs", "a\nb", 2, 2);
        add("hyphens and apostrophes", "it's half-asleep", 2, 16);
        add("beyond U+FFFF", "\U0001f600\U0001f601 x", 2, 4);
    }

    void words()
    {
        FETCH(QString, content);
        QTextDocument document;
        document.setPlainText(content);
        const DocumentInfo info(document);
        QTEST(info.words, "words");
        QTEST(info.characters, "characters");
    }

    void noteRunsAreNotes()
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

    void noteOverParagraphsIsOneNote()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(text("first paragraph\nsecond paragraph"), flagged(ORVRtfProperty::InFootnote));
        QCOMPARE(DocumentInfo(document).paragraphs, 2);
        QCOMPARE(DocumentInfo(document).footnotes, 1);
    }

    void anchorsWithContentAreNotes()
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

    void links_data()
    {
        const Columns<QStringList, QStringList> add("targets", "linkTexts");
        add("none", QStringList({QString(), QString()}), QStringList());
        add("one of two formats", QStringList({text("x"), text("x")}), QStringList({text("0.1.")}));
        add("side by side", QStringList({text("x"), text("y")}), QStringList({text("0."), text("1.")}));
        add("same target twice", QStringList({text("x"), QString(), text("x")}),
            QStringList({text("0."), text("2.")}));
        add("ends with its paragraph", QStringList({text("x"), text("\n"), text("x")}),
            QStringList({text("0."), text("2.")}));
    }

    // Each target has its number as text, in a format of its own; a line feed is a paragraph end.
    void links()
    {
        FETCH(QStringList, targets, QStringList, linkTexts);
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
            cursor.insertText("%1."_s.arg(i), format);
        }
        const DocumentInfo info(document);
        QStringList found;
        for (const DocumentInfo::Link& link : info.links)
            found << link.text;
        QCOMPARE(found, linkTexts);
    }

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
        cursor.insertText(text("item\nitem"));
        cursor.insertBlock(QTextBlockFormat());
        cursor.createList(QTextListFormat::ListDecimal);
        cursor.insertBlock(QTextBlockFormat());
        list->add(cursor.block());
        QCOMPARE(DocumentInfo(document).lists, 2);
    }

    // Qt makes one fragment of pictures that have the same format.
    void picturesSideBySide()
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

    void plainTextOfTable()
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
        QCOMPARE(documentToPlainText(document), "before\nA\nB\nC\nD\nafter\n"_b);
    }

    // A name in a document must not make the tool read a file.
    void picturesOfTheDocumentOnly()
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

    void outlinedTextIsVisibleInHtml()
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
    void exactLineHeightsInHtmlArePixels()
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

    void titleOfHtml_data()
    {
        const Columns<QString, QByteArray> add("title", "element");
        add("plain", "A title", "<title>A title</title>");
        add("about encodings", "Of charset=utf-8", "<title>Of charset=utf-8</title>");
        add("like HTML", "<head></head></title><b>&",
            "<title>&lt;head&gt;&lt;/head&gt;&lt;/title&gt;&lt;b&gt;&amp;</title>");
        add("like an encoding", "<meta charset=x>", "<title>&lt;meta charset=x&gt;</title>");
    }

    /*! Whatever the title is, the file says which encoding it has. */
    void titleOfHtml()
    {
        FETCH(QString, title, QByteArray, element);
        QTextDocument document;
        document.setPlainText(text("text"));
        document.setMetaInformation(QTextDocument::DocumentTitle, title);
        const QByteArray html = documentToHtml(document);
        const QByteArray head = html.left(html.indexOf("</head>"));
        QVERIFY2(head.contains(element), html.constData());
        QCOMPARE(html.count("<title>"), 1);
        QCOMPARE(head.count("<meta charset=\"utf-8\" />"), 1);
    }

    void underlinesInHtml_data()
    {
        const Columns<int, int> add("style", "underlines");
        add("none", int(QTextCharFormat::NoUnderline), 0);
        add("single", int(QTextCharFormat::SingleUnderline), 1);
        add("dashes", int(QTextCharFormat::DashUnderline), 1);
        add("wave", int(QTextCharFormat::WaveUnderline), 1);
    }

    void underlinesInHtml()
    {
        FETCH(int, style);
        QTextCharFormat format;
        format.setProperty(QTextFormat::TextUnderlineStyle, style);
        QTextDocument document;
        QTextCursor(&document).insertText(text("underlined"), format);
        QTEST(int(documentToHtml(document).count("text-decoration: underline")), "underlines");
    }

    // Headings are often items of a list that shows no number.
    void listItemsWithoutMarkerInHtml()
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
    void hiddenListItemShowsNoMarker()
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
};

ORV_TEST("tool_documents", TestToolDocuments, QCoreApplication)
#include "documents.moc"
