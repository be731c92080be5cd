#include "DocumentInfo.h"
#include "HtmlExport.h"
#include "TextExport.h"
#include "VisibleDocument.h"
#include "testsupport.h"

using rtftest::Story;

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
            const DocumentInfo info(*Story().add(content).document());
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

    ORV_ROWS(notes)
    {
        const Rows add([](const Story& story, int paragraphs, int footnotes, int annotations) {
            const DocumentInfo info(*story.document());
            QCOMPARE(info.paragraphs, paragraphs);
            QCOMPARE(info.footnotes, footnotes);
            QCOMPARE(info.annotations, annotations);
        });
        const QTextCharFormat inFootnote = flagged(ORVRtfProperty::InFootnote);
        add("runs",
            Story()
                .add("Text"_s)
                .add("first "_s, inFootnote)
                .add("still first"_s, rtftest::bold(inFootnote))
                .add("Text"_s)
                .add("second"_s, inFootnote)
                .add("remark"_s, flagged(ORVRtfProperty::InAnnotation)),
            1, 2, 1);
        add("over paragraphs", Story().add("first paragraph\nsecond paragraph"_s, inFootnote), 2, 1, 0);
        const QTextCharFormat anchor = anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}");
        add("anchors with content",
            Story()
                .add("a"_s, anchor)
                .add("b"_s, rtftest::bold(anchor))
                .add("c"_s, anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 Two}"))
                .add("d"_s, anchorWith(ORVRtfProperty::AnnotationAnchor, "{\\rtf1 Three}"))
                .add("e"_s, flagged(ORVRtfProperty::AnnotationAnchor)),
            1, 2, 1);
    }

    // Each target has its number as text, in a format of its own; a line feed is a paragraph end.
    ORV_ROWS(links)
    {
        const Rows add([](const QStringList& targets, const QStringList& linkTexts) {
            Story story;
            for (int i = 0; i < targets.size(); ++i) {
                QTextCharFormat format = targets.at(i).isEmpty() ? QTextCharFormat() : linkTo(targets.at(i));
                format.setFontPointSize(10 + i);
                if (targets.at(i) == "\n"_s)
                    story.paragraph();
                else
                    story.add("%1."_s.arg(i), format);
            }
            const DocumentInfo info(*story.document());
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
        QTextImageFormat format;
        format.setName("name"_s);
        const Story story = Story().addResource("name"_s, redSquare()).addPicture(format).addPicture(format);
        QTextDocument& document = *story.document();
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
        const QByteArray html = documentToHtml(*Story().addPicture(format).document());
        QCOMPARE(html.count("<img "), 1);
        QCOMPARE(html.count("data:"), 0);
    }

    ORV_ROWS(characterFormatsInHtml)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& html, int count) {
            QCOMPARE(int(documentToHtml(*Story().add("text"_s, format).document()).count(html)), count);
        });
        QTextCharFormat outlined;
        outlined.setForeground(Qt::transparent);
        outlined.setTextOutline(QPen(QColor(0, 128, 0)));
        add("outlined text is visible", outlined, "color:#008000;\">text<", 1);
        const auto underline = [&](const char* name, QTextCharFormat::UnderlineStyle style, int count) {
            QTextCharFormat format;
            format.setProperty(QTextFormat::TextUnderlineStyle, int(style));
            add(name, format, "text-decoration: underline", count);
        };
        underline("not underlined", QTextCharFormat::NoUnderline, 0);
        underline("single underline", QTextCharFormat::SingleUnderline, 1);
        underline("dashes", QTextCharFormat::DashUnderline, 1);
        underline("wave", QTextCharFormat::WaveUnderline, 1);
    }

    // A browser takes a number without a unit for a multiple of the line.
    void exactLineHeightsInHtmlArePixels()
    {
        const QString written = "line-height:7; -qt-line-height-type: fixed; style=\""_s;
        QTextBlockFormat format;
        format.setLineHeight(20, QTextBlockFormat::FixedHeight);
        const QByteArray html = documentToHtml(*Story().format(format).add(written + written).document());
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
