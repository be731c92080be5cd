#include "TextDocSupport.h"
#include "conversionhelpers.h"
#include "testsupport.h"

using conversiontest::WorkingFolder;
using rtftest::documentLines;

typedef std::function<void(QTextDocument*)> Builder;

namespace {

const int Before = QTextFormat::PageBreak_AlwaysBefore;
const int After = QTextFormat::PageBreak_AlwaysAfter;
const int KeepTogether = 0x200;
const int KeepWithNext = 0x20;

QImage makeImage(QRgb color)
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

/*! Stores an image of one colour under \a name in \a document. */
QImage addImage(QTextDocument* document, const QString& name, QRgb color = qRgb(200, 100, 0))
{
    const QImage image = makeImage(color);
    document->addResource(QTextDocument::ImageResource, QUrl(name), image);
    return image;
}

QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

const QTextBlockFormat centred = rtftest::blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}});
const QTextCharFormat italic = rtftest::charFormat({{QTextFormat::FontItalic, true}});
const QTextListFormat lettered = rtftest::with(
    QTextListFormat(),
    {{QTextFormat::ListStyle, int(QTextListFormat::ListLowerAlpha)}, {QTextFormat::ListIndent, 2}});

QTextCursor endOf(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    return cursor;
}

void appendParagraph(QTextDocument* document, const QString& text)
{
    QTextCursor cursor = endOf(document);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    cursor.insertText(text);
}

void appendText(QTextDocument* document)
{
    appendParagraph(document, "text"_s);
}

void appendTable(QTextDocument* document)
{
    endOf(document).insertTable(2, 2)->cellAt(1, 1).firstCursorPosition().insertText("cell"_s);
}

void formatLastParagraph(QTextDocument* document)
{
    QTextCursor cursor = endOf(document);
    cursor.setBlockFormat(centred);
    cursor.setBlockCharFormat(italic);
}

void makeListItem(QTextDocument* document)
{
    formatLastParagraph(document);
    QTextCursor(document).createList(lettered);
}

/*! Makes \a block an item of the list that the first paragraph is in. */
void addToList(const QTextBlock& block)
{
    block.document()->begin().textList()->add(block);
}

void makeRichDocument(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.insertText("plain "_s);
    cursor.insertText("slanted"_s, italic);
    cursor.insertBlock(centred, italic);
    cursor.insertText("one"_s);
    QTextList* list = cursor.createList(lettered);
    cursor.insertBlock();
    cursor.insertText("two"_s);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    QTextTable* table = cursor.insertTable(3, 3);
    table->mergeCells(0, 1, 2, 2);
    cursor = table->cellAt(0, 1).firstCursorPosition();
    cursor.insertText("cell"_s);
    cursor.insertTable(1, 2)->cellAt(0, 1).firstCursorPosition().insertText("inner"_s, italic);
    list->add(table->cellAt(2, 2).firstCursorPosition().block());
    cursor = endOf(document);
    cursor.insertImage("picture"_s);
    cursor.insertBlock(centred, italic);
}

void setPageBreak(const QTextBlock& block, int policy)
{
    QTextCursor(block).setBlockFormat(
        rtftest::with(block.blockFormat(), {{QTextFormat::PageBreakPolicy, policy}}));
}

/*! Makes paragraphs with these policies; none is stated for 0. */
void makeParagraphs(QTextDocument* document, const QList<int>& policies)
{
    document->setPlainText("text\n"_s.repeated(policies.size() - 1));
    for (int i = 0; i < policies.size(); ++i) {
        if (policies.at(i) != 0)
            setPageBreak(document->findBlockByNumber(i), policies.at(i));
    }
}

/*! The policies of all paragraphs: 0 where none is stated, -1 where 0 is. */
QList<int> policiesOf(const QTextDocument& document)
{
    QList<int> policies;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QVariant policy = block.blockFormat().property(QTextFormat::PageBreakPolicy);
        policies << (policy == QVariant(0) ? -1 : policy.toInt());
    }
    return policies;
}

QSharedPointer<QTextDocument> cloneOf(const QTextDocument& document)
{
    return QSharedPointer<QTextDocument>(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
}

/*! A view of documents that fetches what a document lacks, as text browsers do. */
class FetchingParent : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE QVariant loadResource(int, const QUrl& name)
    {
        asked << name.toString();
        return makeImage(qRgb(1, 2, 3));
    }

    QStringList asked;
};

} // namespace

class TestTextDocSupport : public QObject {
    Q_OBJECT

private slots:
    void nullDocument()
    {
        TextDocSupport::clearDefaultTextOptionFlags(nullptr);
        TextDocSupport::normalizePageBreaks(nullptr);
        QVERIFY(TextDocSupport::image(nullptr, "qrc:/images/dot.png"_s).isNull());
        QVERIFY(!TextDocSupport::cloneDocumentQtStyle(nullptr, this));
    }

    ORV_ROWS(clearedOptionKeepsTheRest)
    {
        const Rows add([](QTextOption::Flags flags) {
            QTextDocument document;
            QTextOption option;
            option.setAlignment(Qt::AlignHCenter);
            option.setTextDirection(Qt::RightToLeft);
            option.setWrapMode(QTextOption::NoWrap);
            option.setUseDesignMetrics(true);
            option.setFlags(flags);
            document.setDefaultTextOption(option);
            TextDocSupport::clearDefaultTextOptionFlags(&document);
            const QTextOption cleared = document.defaultTextOption();
            QCOMPARE(int(cleared.flags()), 0);
            QCOMPARE(int(cleared.alignment()), int(option.alignment()));
            QCOMPARE(cleared.textDirection(), Qt::RightToLeft);
            QCOMPARE(cleared.wrapMode(), QTextOption::NoWrap);
            QVERIFY(cleared.useDesignMetrics());
        });
        add("flags",
            QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators
                | QTextOption::IncludeTrailingSpaces);
        add("no flags", QTextOption::Flags());
    }

    // One step of undo restores them; what is normal is not changed.
    ORV_ROWS(pageBreaks)
    {
        const Rows add([](const QList<int>& policies, const QList<int>& normalized) {
            QTextDocument document;
            makeParagraphs(&document, policies);
            document.clearUndoRedoStacks();
            document.setModified(false);
            for (int i = 0; i < 2; ++i) {
                TextDocSupport::normalizePageBreaks(&document);
                QCOMPARE(policiesOf(document), normalized);
                QCOMPARE(document.isModified(), policies != normalized);
                QCOMPARE(document.isUndoAvailable(), policies != normalized);
            }
            document.undo();
            QVERIFY(!document.isUndoAvailable());
            QCOMPARE(policiesOf(document), policies);
        });
        add("none", {0, 0}, {0, 0});
        add("after becomes before the next", {After, 0, 0}, {0, Before, 0});
        add("before stays", {0, Before}, {0, Before});
        add("after and before are one break", {After, Before}, {0, Before});
        add("before and after one paragraph", {Before | After, 0}, {Before, Before});
        add("after two", {After, After, 0}, {0, Before, Before});
        add("after several in a row", {After, After, After, 0}, {0, Before, Before, Before});
        add("after the last stays", {0, After}, {0, After});
        add("before, and after the last", {0, Before, KeepTogether | After},
            {0, Before, KeepTogether | After});
        add("after the last two", {After, After}, {0, Before | After});
        add("after the only one", {After}, {After});
        add("between paragraphs without", {0, After, 0, 0, After, 0}, {0, 0, Before, 0, 0, Before});
        add("other bits stay", {After | KeepTogether, KeepWithNext, KeepTogether | KeepWithNext},
            {KeepTogether, Before | KeepWithNext, KeepTogether | KeepWithNext});
    }

    // Blocks: 0 before the table, 1 and 2 in it, 3 after it.
    void pageBreaksAroundTables()
    {
        QTextDocument document;
        QTextCursor(&document).insertTable(1, 2);
        QCOMPARE(document.blockCount(), 4);
        setPageBreak(document.findBlockByNumber(0), After);
        setPageBreak(document.findBlockByNumber(2), After);
        TextDocSupport::normalizePageBreaks(&document);
        QCOMPARE(policiesOf(document), QList<int>({0, Before, 0, Before}));
        QCOMPARE(document.rootFrame()->childFrames().size(), 1);
    }

    void pageBreaksKeepFormatsAndLists()
    {
        QTextDocument document("one\ntwo"_s);
        QTextCursor(&document).setBlockFormat(centred);
        QTextCursor(&document).createList(QTextListFormat::ListDisc);
        addToList(document.lastBlock());
        setPageBreak(document.begin(), After);
        TextDocSupport::normalizePageBreaks(&document);
        QCOMPARE(policiesOf(document), QList<int>({0, Before}));
        QVERIFY(document.begin().textList());
        QCOMPARE(document.begin().textList()->count(), 2);
        QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignHCenter));
    }

    ORV_ROWS(imageResource)
    {
        const Rows add([](const QVariant& resource, const QImage& image) {
            QTextDocument document;
            document.addResource(QTextDocument::ImageResource, QUrl("orvimage:1"_s), resource);
            QCOMPARE(TextDocSupport::image(&document, "orvimage:1"_s).convertToFormat(QImage::Format_ARGB32),
                     image);
        });
        const QImage image = makeImage(qRgba(10, 200, 30, 255));
        add("image", image, image);
        add("pixmap", QPixmap::fromImage(image), image);
        add("encoded bytes", pngOf(image), image);
        add("other bytes", "no picture"_b, QImage());
        add("text", "no picture"_s, QImage());
        add("null image", QImage(), QImage());
    }

    ORV_ROWS(imageNames)
    {
        const Rows add([](const QString& name) {
            QTextDocument document;
            addImage(&document, "other"_s, qRgb(2, 2, 2));
            const QImage image = addImage(&document, name, qRgb(1, 1, 1));
            QCOMPARE(TextDocSupport::image(&document, name), image);
        });
        add("name", "Image1");
        add("file name", "picture.png");
        add("path", "/no/such/folder/picture.png");
        add("relative path", "../pictures/picture.png");
        add("file URL", "file:///no/such/folder/picture.png");
        add("http URL", "http://example.org/picture.png?size=1#top");
        add("own scheme", "orvimage:0123abcd");
        add("blanks and letters", "caf\xc3\xa9 1.png");
        add("stored over a compiled one", "qrc:/images/dot.png");
    }

    ORV_ROWS(noImage)
    {
        const Rows add([](const QString& name) {
            QTextDocument document;
            QVERIFY(TextDocSupport::image(&document, name).isNull());
        });
        add("empty", "");
        add("unknown name", "no such name");
        add("unknown path", "/no/such/file.png");
        add("unknown URL", "http://example.org/none.png");
        add("not a URL", "http://[");
        add("compiled name without scheme", ":/images/dot.png");
        add("compiled, no picture", "qrc:/images/no picture.txt");
        add("compiled, unknown", "qrc:/images/none.png");
        add("damaged data URL", "data:image/png;base64,AAAA");
    }

    void compiledResource()
    {
        QTextDocument document;
        const QImage image = TextDocSupport::image(&document, "qrc:/images/dot.png"_s);
        QCOMPARE(image.size(), QSize(2, 1));
        QCOMPARE(image.pixel(0, 0), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(1, 0), qRgb(0, 255, 0));
    }

    void baseUrlAppliesToNames()
    {
        QTextDocument document;
        const QImage image = addImage(&document, "store:/pictures/1"_s);
        document.setBaseUrl(QUrl("store:/pictures/"_s));
        QCOMPARE(TextDocSupport::image(&document, "1"_s), image);
        QVERIFY(TextDocSupport::image(&document, "2"_s).isNull());
        document.setBaseUrl(QUrl("qrc:/images/"_s));
        QCOMPARE(TextDocSupport::image(&document, "dot.png"_s).size(), QSize(2, 1));
    }

    ORV_ROWS(filesAreNeverLoaded)
    {
        const Rows add([](QString name, QString documentUrl) {
            const QTemporaryDir folder;
            const WorkingFolder current(folder.path());
            QVERIFY(makeImage(qRgb(1, 2, 3)).save("picture.png"_s));
            name.replace("%1"_s, folder.path());
            QTextDocument document;
            document.setMetaInformation(QTextDocument::DocumentUrl,
                                        documentUrl.replace("%1"_s, folder.path()));
            QVERIFY(TextDocSupport::image(&document, name).isNull());
            QVERIFY(!document.parent());
            document.setBaseUrl(QUrl::fromLocalFile(folder.path() + QLatin1Char('/')));
            QVERIFY(TextDocSupport::image(&document, name).isNull());
        });
        // %1 stands for the working folder, in which picture.png lies.
        add("file name", "picture.png", "");
        add("relative path", "./picture.png", "");
        add("absolute path", "%1/picture.png", "");
        add("file URL", "file://%1/picture.png", "");
        add("file URL, in capitals", "FILE://%1/picture.png", "");
        add("file URL of a relative path", "file:picture.png", "");
        add("beside the document", "picture.png", "file://%1/document.html");
        add("document's own URL", "", "file://%1/picture.png");
        add("place in the document", "#there", "file://%1/picture.png");
    }

    void storedImageWinsOverFile()
    {
        const QTemporaryDir folder;
        const WorkingFolder current(folder.path());
        QVERIFY(makeImage(qRgb(1, 2, 3)).save("picture.png"_s));
        QTextDocument document;
        const QImage stored = addImage(&document, "picture.png"_s);
        QCOMPARE(TextDocSupport::image(&document, "picture.png"_s), stored);
    }

    void parentIsNotAskedForFiles()
    {
        FetchingParent parent;
        QTextDocument* document = new QTextDocument(&parent);
        const QImage stored = addImage(document, "stored.png"_s);
        QCOMPARE(TextDocSupport::image(document, "stored.png"_s), stored);
        QVERIFY(TextDocSupport::image(document, "other.png"_s).isNull());
        QCOMPARE(parent.asked, QStringList());
        QCOMPARE(document->parent(), &parent);
        QCOMPARE(parent.children(), QObjectList() << document);
    }

    void documentOfAnotherThread()
    {
        const QTemporaryDir folder;
        const WorkingFolder current(folder.path());
        QVERIFY(makeImage(qRgb(1, 2, 3)).save("picture.png"_s));
        QThread idle;
        QTextDocument document;
        const QImage stored = addImage(&document, "stored.png"_s);
        document.moveToThread(&idle);
        QCOMPARE(TextDocSupport::image(&document, "stored.png"_s), stored);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        QTest::ignoreMessage(
            QtWarningMsg,
            "QMetaMethod::invoke: Unable to invoke methods with return values in queued connections");
#endif
        QVERIFY(TextDocSupport::image(&document, "picture.png"_s).isNull());
        QCOMPARE(document.thread(), &idle);
        QVERIFY(!document.parent());
    }

    void cloneHasParent()
    {
        const QTextDocument document;
        QObject parent;
        QCOMPARE(TextDocSupport::cloneDocumentQtStyle(&document, &parent)->parent(), &parent);
        QVERIFY(!cloneOf(document)->parent());
    }

    void cloneIsIndependent()
    {
        QTextDocument document;
        makeRichDocument(&document);
        const QStringList before = documentLines(document);
        const QSharedPointer<QTextDocument> copy = cloneOf(document);
        QVERIFY(!copy->isUndoRedoEnabled());
        QVERIFY(!copy->isUndoAvailable());
        QVERIFY(document.isUndoRedoEnabled());
        QTextCursor cursor(copy.data());
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        QCOMPARE(documentLines(document), before);
    }

    ORV_ROWS(cloneKeepsContent)
    {
        const Rows add([](const QList<Builder>& steps) {
            QTextDocument document;
            for (const Builder& step : steps)
                step(&document);
            QCOMPARE(documentLines(*cloneOf(document)), documentLines(document));
        });
        add("empty", {});
        add("rich", {makeRichDocument});
        add("one blank paragraph", {formatLastParagraph});
        add("one blank list item", {makeListItem});
        add("blank paragraph before text", {formatLastParagraph, appendText});
        add("blank paragraph before a table", {formatLastParagraph, appendTable});
        add("blank list item before text", {makeListItem, appendText});
        add("blank list item before a table", {makeListItem, appendTable});
        add("blank list item before others", {makeListItem, appendText, [](QTextDocument* document) {
                                                  appendParagraph(document, QString());
                                                  addToList(document->lastBlock());
                                                  addToList(document->begin().next());
                                              }});
        add("blank list item before another",
            {makeListItem, appendText, appendText,
             [](QTextDocument* document) { addToList(document->lastBlock()); }});
        add("blank list item with others in a cell", {makeListItem, appendTable, [](QTextDocument* document) {
                                                          addToList(document->begin().next());
                                                      }});
        add("blank paragraph after a table", {appendTable, formatLastParagraph});
        add("page breaks", {appendText, [](QTextDocument* document) {
                                appendParagraph(document, QString());
                                setPageBreak(document->begin(), After | KeepTogether);
                                setPageBreak(document->begin().next(), Before | KeepWithNext);
                                setPageBreak(document->lastBlock(), After);
                            }});
        add("multi-level list",
            {[](QTextDocument* document) {
                 const ORVTextListLevel level = rtftest::makeLevel(ORVTextListLevel::Decimal, "%0)"_s, 36);
                 QTextList* list = QTextCursor(document).createList(rtftest::listFormatWith({level, level}));
                 ORVTextListFormat::setBlockLevel(list, document->begin(), 1);
             },
             appendTable});
    }

    void cloneKeepsTableSpans()
    {
        QTextDocument document;
        QTextTable* table = QTextCursor(&document).insertTable(3, 3);
        table->mergeCells(0, 1, 2, 2);
        table->mergeCells(2, 0, 1, 2);
        const QString shape = "3: -, -(r2c2) / - / -(c2), -"_s;
        QCOMPARE(rtftest::tableLines(document), shape);
        QCOMPARE(rtftest::tableLines(*cloneOf(document)), shape);
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

            const QSharedPointer<QTextDocument> copy = cloneOf(document);
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
            QCOMPARE(rtftest::dump(copy->rootFrame()->frameFormat()), rtftest::dump(frame));
        });
        add("text", makeRichDocument);
        add("no text", [](QTextDocument*) {});
        add("one blank list item", makeListItem);
    }

    void cloneKeepsDynamicProperties()
    {
        QTextDocument document;
        document.setProperty("topMargin", 12.5);
        document.setProperty("paperSize", QSizeF(100, 200));
        const QTextCharFormat format = rtftest::charFormat({{QTextFormat::FontPointSize, 31.0}});
        ORVTextFormat::setDefaultCharFormat(&document, format);
        const QSharedPointer<QTextDocument> copy = cloneOf(document);
        QVERIFY(copy->property("topMargin") == QVariant(12.5));
        QVERIFY(copy->property("paperSize") == QVariant(QSizeF(100, 200)));
        QVERIFY(ORVTextFormat::defaultCharFormat(copy.data()) == format);
        QCOMPARE(copy->dynamicPropertyNames().size(), document.dynamicPropertyNames().size());
    }

    void cloneKeepsResources()
    {
        QTextDocument document;
        makeRichDocument(&document);
        const QImage image = addImage(&document, "picture"_s, qRgba(10, 20, 30, 40));
        document.addResource(QTextDocument::UserResource, QUrl("data"_s), "bytes"_b);
        const QSharedPointer<QTextDocument> copy = cloneOf(document);
        QCOMPARE(TextDocSupport::image(copy.data(), "picture"_s), image);
        QCOMPARE(copy->resource(QTextDocument::UserResource, QUrl("data"_s)).toByteArray(), "bytes"_b);
    }

    void cloneFindsPicturesUnderBaseUrl()
    {
        QTextDocument document("text"_s);
        const QImage image = addImage(&document, "http://example.org/a/b.png"_s);
        document.setBaseUrl(QUrl("http://example.org/a/"_s));
        QCOMPARE(TextDocSupport::image(cloneOf(document).data(), "b.png"_s), image);
    }
};

ORV_TEST("textdocsupport", TestTextDocSupport, QGuiApplication)
#include "textdocsupport.moc"
