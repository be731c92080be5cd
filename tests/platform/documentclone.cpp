#include "TextDocSupport.h"
#include "testsupport.h"

typedef std::function<void(QTextDocument*)> Builder;
Q_DECLARE_METATYPE(Builder)

namespace {

const int Before = QTextFormat::PageBreak_AlwaysBefore;
const int After = QTextFormat::PageBreak_AlwaysAfter;

QImage makeImage(QRgb color)
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

// Properties in a readable form, without the numbers of lists and tables, which are a document's own affair.
QString dump(const QTextFormat& format)
{
    QStringList parts;
    const QMap<int, QVariant> properties = format.properties();
    for (auto it = properties.constBegin(); it != properties.constEnd(); ++it) {
        if (it.key() == QTextFormat::ObjectIndex)
            continue;
        QString value;
        QDebug(&value) << it.value();
        parts << QString::number(it.key(), 16) + QLatin1Char('=') + value.trimmed();
    }
    return parts.join(QLatin1Char(' '));
}

QString dump(const QTextBlock& block)
{
    QString text = "block "_s + dump(block.blockFormat()) + " / "_s + dump(block.charFormat());
    if (QTextList* list = block.textList()) {
        text += " list from %1, item %2 of %3, "_s.arg(list->item(0).blockNumber())
                    .arg(list->itemNumber(block))
                    .arg(list->count())
            + dump(list->format());
    }
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        text += "\n  \""_s + it.fragment().text() + "\" "_s + dump(it.fragment().charFormat());
    }
    return text + QLatin1Char('\n');
}

QString dump(QTextFrame* frame)
{
    QString text = "frame "_s + dump(frame->frameFormat()) + QLatin1Char('\n');
    for (QTextFrame::iterator it = frame->begin(); !it.atEnd(); ++it)
        text += it.currentFrame() ? dump(it.currentFrame()) : dump(it.currentBlock());
    return text + "end\n"_s;
}

QString spansOf(QTextTable* table)
{
    QStringList spans;
    for (int row = 0; row < table->rows(); ++row) {
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            spans << "%1x%2"_s.arg(cell.rowSpan()).arg(cell.columnSpan());
        }
    }
    return spans.join(QLatin1Char(' '));
}

QTextBlockFormat centred()
{
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignHCenter);
    return format;
}

QTextCharFormat italic()
{
    QTextCharFormat format;
    format.setFontItalic(true);
    return format;
}

QTextListFormat lettered()
{
    QTextListFormat format;
    format.setStyle(QTextListFormat::ListLowerAlpha);
    format.setIndent(2);
    return format;
}

void makeFirstBlock(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.setBlockFormat(centred());
    cursor.setBlockCharFormat(italic());
}

void makeFirstListItem(QTextDocument* document)
{
    makeFirstBlock(document);
    QTextCursor(document).createList(lettered());
}

void appendParagraph(QTextDocument* document, const QString& text)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    cursor.insertText(text);
}

void appendTable(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertTable(2, 2)->cellAt(1, 1).firstCursorPosition().insertText("cell"_s);
}

void makeRichDocument(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.insertText("plain "_s);
    cursor.insertText("slanted"_s, italic());
    cursor.insertBlock(centred(), italic());
    cursor.insertText("one"_s);
    QTextList* list = cursor.createList(lettered());
    cursor.insertBlock();
    cursor.insertText("two"_s);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    QTextTable* table = cursor.insertTable(3, 3);
    table->mergeCells(0, 1, 2, 2);
    cursor = table->cellAt(0, 1).firstCursorPosition();
    cursor.insertText("cell"_s);
    cursor.insertTable(1, 2)->cellAt(0, 1).firstCursorPosition().insertText("inner"_s, italic());
    list->add(table->cellAt(2, 2).firstCursorPosition().block());
    cursor.movePosition(QTextCursor::End);
    cursor.insertImage("picture"_s);
    cursor.insertBlock(centred(), italic());
}

void setPageBreak(const QTextBlock& block, int policy)
{
    QTextBlockFormat format = block.blockFormat();
    format.setProperty(QTextFormat::PageBreakPolicy, policy);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

class TestDocumentClone : public QObject {
    Q_OBJECT

private slots:
    void cloneOfNullIsNull() { QVERIFY(!TextDocSupport::cloneDocumentQtStyle(nullptr, this)); }

    void cloneHasParent()
    {
        const QTextDocument document;
        QObject parent;
        const QTextDocument* copy = TextDocSupport::cloneDocumentQtStyle(&document, &parent);
        QCOMPARE(copy->parent(), &parent);
        const QScopedPointer<QTextDocument> orphan(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QVERIFY(!orphan->parent());
    }

    void cloneHasNoUndo()
    {
        QTextDocument document;
        makeRichDocument(&document);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QVERIFY(!copy->isUndoRedoEnabled());
        QVERIFY(!copy->isUndoAvailable());
        QVERIFY(document.isUndoRedoEnabled());
    }

    void cloneIsIndependent()
    {
        QTextDocument document;
        makeRichDocument(&document);
        const QString before = dump(document.rootFrame());
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QTextCursor cursor(copy.data());
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        QCOMPARE(dump(document.rootFrame()), before);
    }

    void cloneKeepsContent_data()
    {
        const Columns<Builder> row("build");
        row("empty", Builder([](QTextDocument*) {}));
        row("rich", Builder(makeRichDocument));
        row("one blank paragraph", Builder(makeFirstBlock));
        row("one blank list item", Builder(makeFirstListItem));
        row("blank paragraph before text", Builder([](QTextDocument* document) {
                makeFirstBlock(document);
                appendParagraph(document, "text"_s);
            }));
        row("blank paragraph before a table", Builder([](QTextDocument* document) {
                makeFirstBlock(document);
                appendTable(document);
            }));
        row("blank list item before text", Builder([](QTextDocument* document) {
                makeFirstListItem(document);
                appendParagraph(document, "text"_s);
            }));
        row("blank list item before a table", Builder([](QTextDocument* document) {
                makeFirstListItem(document);
                appendTable(document);
            }));
        row("blank list item before others", Builder([](QTextDocument* document) {
                makeFirstListItem(document);
                appendParagraph(document, "second"_s);
                appendParagraph(document, QString());
                document->begin().textList()->add(document->lastBlock());
                document->begin().textList()->add(document->begin().next());
            }));
        row("blank list item with others in a cell", Builder([](QTextDocument* document) {
                makeFirstListItem(document);
                appendTable(document);
                document->begin().textList()->add(document->begin().next());
            }));
        row("blank paragraph after a table", Builder([](QTextDocument* document) {
                appendTable(document);
                QTextCursor cursor(document);
                cursor.movePosition(QTextCursor::End);
                cursor.setBlockFormat(centred());
                cursor.setBlockCharFormat(italic());
            }));
        row("page breaks", Builder([](QTextDocument* document) {
                appendParagraph(document, "text"_s);
                appendParagraph(document, QString());
                setPageBreak(document->begin(), After | 0x200);
                setPageBreak(document->begin().next(), Before | 0x20);
                setPageBreak(document->lastBlock(), After);
            }));
        row("multi-level list", Builder([](QTextDocument* document) {
                QTextListFormat format;
                ORVTextListLevel level;
                level.setText("%0)"_s);
                level.setIndent(36);
                ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>() << level << level);
                QTextList* list = QTextCursor(document).createList(format);
                ORVTextListFormat::setBlockLevel(list, document->begin(), 1);
                appendTable(document);
            }));
    }

    void cloneKeepsContent()
    {
        FETCH(Builder, build);
        QTextDocument document;
        build(&document);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QCOMPARE(dump(copy->rootFrame()), dump(document.rootFrame()));
    }

    void cloneKeepsTableSpans()
    {
        QTextDocument document;
        QTextTable* table = QTextCursor(&document).insertTable(3, 3);
        table->mergeCells(0, 1, 2, 2);
        table->mergeCells(2, 0, 1, 2);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QCOMPARE(copy->rootFrame()->childFrames().size(), 1);
        QTextTable* copied = qobject_cast<QTextTable*>(copy->rootFrame()->childFrames().first());
        QVERIFY(copied);
        QCOMPARE(spansOf(copied), "1x1 2x2 2x2 1x1 2x2 2x2 1x2 1x2 1x1"_s);
    }

    void cloneKeepsBlankListItemInItsList()
    {
        QTextDocument document;
        makeFirstListItem(&document);
        appendParagraph(&document, "between"_s);
        appendParagraph(&document, "second item"_s);
        document.begin().textList()->add(document.lastBlock());
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QVERIFY(copy->begin().textList());
        QCOMPARE(copy->lastBlock().textList(), copy->begin().textList());
        QCOMPARE(copy->begin().textList()->itemText(copy->lastBlock()), "b."_s);
        QVERIFY(!copy->begin().next().textList());
    }

    ORV_ROWS(cloneKeepsDocumentProperties)
    {
        const Rows add([](const Builder& build) {
            QTextDocument document;
            build(&document);
            document.setMetaInformation(QTextDocument::DocumentTitle, "Title"_s);
            document.setMetaInformation(QTextDocument::DocumentUrl, "http://example.org/document"_s);
            document.setBaseUrl(QUrl("http://example.org/base/"_s));
            document.setDefaultStyleSheet("p { color: red }"_s);
            document.setDefaultFont(QFont("DejaVu Serif"_s, 23));
            document.setPageSize(QSizeF(300, 400));
            document.setIndentWidth(33);
            document.setDocumentMargin(17);
            document.setDefaultCursorMoveStyle(Qt::VisualMoveStyle);
            QTextOption option;
            option.setAlignment(Qt::AlignRight);
            option.setFlags(QTextOption::ShowTabsAndSpaces);
            document.setDefaultTextOption(option);
            document.setUseDesignMetrics(true);
            QTextFrameFormat frame = document.rootFrame()->frameFormat();
            frame.setLeftMargin(5);
            frame.setBackground(Qt::yellow);
            document.rootFrame()->setFrameFormat(frame);

            const QScopedPointer<QTextDocument> copy(
                TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
            QCOMPARE(copy->metaInformation(QTextDocument::DocumentTitle), "Title"_s);
            QCOMPARE(copy->metaInformation(QTextDocument::DocumentUrl), "http://example.org/document"_s);
            QCOMPARE(copy->baseUrl(), document.baseUrl());
            QCOMPARE(copy->defaultStyleSheet(), document.defaultStyleSheet());
            QCOMPARE(copy->defaultFont(), document.defaultFont());
            QCOMPARE(copy->pageSize(), QSizeF(300, 400));
            QCOMPARE(copy->indentWidth(), qreal(33));
            QCOMPARE(copy->documentMargin(), qreal(17));
            QCOMPARE(copy->defaultCursorMoveStyle(), Qt::VisualMoveStyle);
            QCOMPARE(int(copy->defaultTextOption().alignment() & Qt::AlignHorizontal_Mask),
                     int(Qt::AlignRight));
            QVERIFY(copy->defaultTextOption().flags() & QTextOption::ShowTabsAndSpaces);
            QVERIFY(copy->useDesignMetrics());
            QCOMPARE(dump(copy->rootFrame()->frameFormat()), dump(frame));
        });
        add("text", Builder([](QTextDocument* document) { makeRichDocument(document); }));
        add("no text", Builder([](QTextDocument*) {}));
        add("one blank list item", Builder(makeFirstListItem));
    }

    void cloneKeepsDynamicProperties()
    {
        QTextDocument document;
        document.setProperty("topMargin", 12.5);
        document.setProperty("paperSize", QSizeF(100, 200));
        QTextCharFormat format;
        format.setFontPointSize(31);
        ORVTextFormat::setDefaultCharFormat(&document, format);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QVERIFY(copy->property("topMargin") == QVariant(12.5));
        QVERIFY(copy->property("paperSize") == QVariant(QSizeF(100, 200)));
        QVERIFY(ORVTextFormat::defaultCharFormat(copy.data()) == format);
        QCOMPARE(copy->dynamicPropertyNames().size(), document.dynamicPropertyNames().size());
    }

    void cloneKeepsResources()
    {
        QTextDocument document;
        makeRichDocument(&document);
        const QImage image = makeImage(qRgba(10, 20, 30, 40));
        document.addResource(QTextDocument::ImageResource, QUrl("picture"_s), image);
        document.addResource(QTextDocument::UserResource, QUrl("data"_s), "bytes"_b);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QCOMPARE(TextDocSupport::image(copy.data(), "picture"_s), image);
        QCOMPARE(copy->resource(QTextDocument::UserResource, QUrl("data"_s)).toByteArray(), "bytes"_b);
    }

    void cloneFindsPicturesUnderBaseUrl()
    {
        QTextDocument document("text"_s);
        const QImage image = makeImage(qRgb(10, 20, 30));
        document.addResource(QTextDocument::ImageResource, QUrl("http://example.org/a/b.png"_s), image);
        document.setBaseUrl(QUrl("http://example.org/a/"_s));
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QCOMPARE(TextDocSupport::image(copy.data(), "b.png"_s), image);
    }
};

ORV_TEST("documentclone", TestDocumentClone, QGuiApplication)
#include "documentclone.moc"
