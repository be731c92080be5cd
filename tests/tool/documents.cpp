#include "DocumentInfo.h"
#include "ORVTextPage.h"
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

/*! Two pictures that have the same format, of which Qt makes one fragment. */
Story twoPictures()
{
    QImage redSquare(2, 2, QImage::Format_RGB32);
    redSquare.fill(Qt::red);
    QTextImageFormat format;
    format.setName("name"_s);
    return Story().addResource("name"_s, redSquare).addPicture(format).addPicture(format);
}

/*! What there is of what the tool counts in \a document. */
QString countsOf(const QTextDocument& document)
{
    const DocumentInfo info(document);
    const std::pair<int, const char*> counts[] = {
        {info.paragraphs, "paragraphs"}, {info.words, "words"},         {info.characters, "characters"},
        {info.pictures, "pictures"},     {info.footnotes, "footnotes"}, {info.annotations, "annotations"},
        {info.endnotes, "endnotes"},     {info.tables, "tables"},       {info.lists, "lists"}};
    QStringList found;
    for (const auto& count : counts) {
        if (count.first != 0)
            found << "%1 %2"_s.arg(count.first).arg(QLatin1String(count.second));
    }
    return found.join(", "_s);
}

} // namespace

/*! What the tool says of documents, and makes of them, whether the reader can produce them or not. */
class TestToolDocuments : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(counts)
    {
        const Rows add([](const Story& story, const QString& counts) {
            QCOMPARE(countsOf(*story.document()), counts);
            QCOMPARE(DocumentInfo(*story.document()).fonts.isEmpty(), !counts.contains("words"_s));
        });
        const auto text = [&](const QByteArray& name, const QString& text, const QString& counts) {
            add(name, Story().add(text), counts);
        };
        text("empty document", QString(), "1 paragraphs"_s);
        text("one word", "word"_s, "1 paragraphs, 1 words, 4 characters"_s);
        text("several spaces", "  two   words "_s, "1 paragraphs, 2 words, 14 characters"_s);
        text("tabs and no-break spaces", "a\tb\u00a0c"_s, "1 paragraphs, 3 words, 5 characters"_s);
        text("paragraphs", "a\nb"_s, "2 paragraphs, 2 words, 2 characters"_s);
        text("hyphens and apostrophes", "it's half-asleep"_s, "1 paragraphs, 2 words, 16 characters"_s);
        text("beyond U+FFFF", "\U0001f600\U0001f601 x"_s, "1 paragraphs, 2 words, 4 characters"_s);

        const QTextCharFormat inFootnote = flagged(ORVRtfProperty::InFootnote);
        add("runs of notes",
            Story()
                .add("Text"_s)
                .add(" first "_s, inFootnote)
                .add("still first"_s, rtftest::bold(inFootnote))
                .add("Text"_s)
                .add("second"_s, inFootnote)
                .add("remark"_s, flagged(ORVRtfProperty::InAnnotation)),
            "1 paragraphs, 4 words, 38 characters, 2 footnotes, 1 annotations");
        add("note over paragraphs", Story().add("first\nsecond"_s, inFootnote),
            "2 paragraphs, 2 words, 11 characters, 1 footnotes");
        const QTextCharFormat anchor = anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}");
        add("anchors with content",
            Story()
                .add("a"_s, anchor)
                .add("b"_s, rtftest::bold(anchor))
                .add("c"_s, anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 Two}"))
                .add("d"_s, anchorWith(ORVRtfProperty::AnnotationAnchor, "{\\rtf1 Three}"))
                .add("e"_s, flagged(ORVRtfProperty::AnnotationAnchor)),
            "1 paragraphs, 1 words, 5 characters, 2 footnotes, 1 annotations");

        QTextCharFormat endnote = anchorWith(ORVRtfProperty::FootnoteAnchor, "{\\rtf1 One}");
        endnote.setProperty(ORVRtfProperty::EndnoteAnchor, true);
        endnote.setProperty(ORVRtfProperty::NoteNumber, 1);
        add("endnote", Story().add("word"_s).add("i"_s, endnote),
            "1 paragraphs, 1 words, 5 characters, 1 endnotes");

        add("pictures side by side", twoPictures(), "1 paragraphs, 2 pictures");
        Story tables;
        tables.cursor().insertTable(2, 2)->cellAt(0, 0).firstCursorPosition().insertTable(1, 1);
        tables.cursor().movePosition(QTextCursor::End);
        tables.cursor().insertTable(1, 3);
        add("table within a table", tables, "12 paragraphs, 3 tables");
        Story lists;
        QTextList* const list = lists.cursor().createList(QTextListFormat::ListDisc);
        lists.add("item\nitem"_s).cursor().insertBlock(QTextBlockFormat());
        lists.cursor().createList(QTextListFormat::ListDecimal);
        lists.cursor().insertBlock(QTextBlockFormat());
        list->add(lists.cursor().block());
        add("list in two parts", lists, "4 paragraphs, 2 words, 8 characters, 2 lists");
    }

    void descriptions()
    {
        QTextDocument document;
        document.setMetaInformation(QTextDocument::DocumentTitle, "A \"title\""_s);
        const char* const texts[] = {"author",  "lastAuthor", "subject", "keywords",
                                     "comment", "manager",    "company", "category"};
        for (const char* name : texts)
            document.setProperty(name, "of "_s + QLatin1String(name));
        document.setProperty("subject", QString());
        document.setProperty("created", QDateTime(QDate(2020, 5, 1), QTime(9, 7, 30)));
        document.setProperty("lastModified", QDateTime(QDate(2021, 12, 31), QTime(23, 59)));
        document.setProperty("printed", QDateTime());
        ORVTextPage header;
        header.text = "left\tmiddle\u2028<$p>"_s;
        document.setProperty("header", QVariant::fromValue(header));
        const DocumentInfo info(document);
        QCOMPARE(info.toText().left(info.toText().indexOf("paragraphs"_s)),
                 "title       A \"title\"\n"
                 "author      of author\n"
                 "last author of lastAuthor\n"
                 "keywords    of keywords\n"
                 "comment     of comment\n"
                 "manager     of manager\n"
                 "company     of company\n"
                 "category    of category\n"
                 "created     2020-05-01T09:07\n"
                 "modified    2021-12-31T23:59\n"
                 "header      left middle <$p>\n"_s);
        const QJsonObject json = info.toJson();
        QCOMPARE(json.value("title"_s).toString(), "A \"title\""_s);
        QCOMPARE(json.value("lastAuthor"_s).toString(), "of lastAuthor"_s);
        QCOMPARE(json.value("created"_s).toString(), "2020-05-01T09:07"_s);
        QCOMPARE(json.value("header"_s).toString(), "left\tmiddle\n<$p>"_s);
        for (const QString& key : {"subject"_s, "printed"_s, "footer"_s})
            QVERIFY(!json.contains(key));
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

    void plainText()
    {
        QTextDocument document;
        QCOMPARE(documentToPlainText(document), QByteArray());
        QCOMPARE(documentToPlainText(*twoPictures().document()), QByteArray());
        QTextCursor cursor(&document);
        cursor.insertText("before"_s);
        QTextTable* table = cursor.insertTable(2, 2);
        for (int i = 0; i < 4; ++i)
            table->cellAt(i / 2, i % 2).firstCursorPosition().insertText(QChar('A' + i));
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("after"_s);
        QCOMPARE(documentToPlainText(document), "before\nA\nB\nC\nD\nafter\n"_b);
        QCOMPARE(documentToPlainText(*Story().add("one\u2028two\u00a0three"_s).document()),
                 "one\ntwo\u00a0three\n"_s.toUtf8());
    }

    void plainTextOfListsAndNotes()
    {
        const auto note = [](int number, const QByteArray& content, int anchor) {
            QTextCharFormat format = anchorWith(anchor, "{\\rtf1 " + content + "}");
            format.setProperty(ORVRtfProperty::NoteNumber, number);
            return format;
        };
        QTextCharFormat endnote = note(1, "At the end.", ORVRtfProperty::FootnoteAnchor);
        endnote.setProperty(ORVRtfProperty::EndnoteAnchor, true);
        QTextCharFormat comment = note(1, "Right?", ORVRtfProperty::AnnotationAnchor);
        comment.setProperty(ORVRtfProperty::NoteAuthor, "Ann"_s);
        comment.setProperty(ORVRtfProperty::NoteDate, QDateTime(QDate(2020, 5, 1), QTime(9, 0)));
        Story story;
        story.cursor().createList(QTextListFormat::ListDecimal);
        story.add("item"_s)
            .add("1"_s, note(1, "First.\\par More.", ORVRtfProperty::FootnoteAnchor))
            .paragraph()
            .paragraph()
            .add("word"_s, note(0, QByteArray(), 0))
            .add("i"_s, endnote)
            .add("1"_s, comment);
        story.cursor().insertBlock(QTextBlockFormat(), QTextCharFormat());
        story.add("text"_s).add("*"_s, note(0, "Own.", ORVRtfProperty::FootnoteAnchor)).add("end"_s);
        story.add(" in line"_s, flagged(ORVRtfProperty::InFootnote));
        QCOMPARE(documentToPlainText(*story.document()),
                 "1. item[1]\n2.\n3. word[i][c1]\ntext[*]end[2]\n\n[1] First.\nMore.\n[*] Own.\n[2] in line\n"
                 "[i] At the end.\n[c1] Ann, 2020-05-01: Right?\n"_b);
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
