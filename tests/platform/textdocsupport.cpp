#include "TextDocSupport.h"
#include "testsupport.h"

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
QImage addImage(QTextDocument* document, const QString& name, QRgb color)
{
    const QImage image = makeImage(color);
    document->addResource(QTextDocument::ImageResource, QUrl(name), image);
    return image;
}

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QImage argb(const QImage& image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

// Rows are numbered from 0; a document of that many paragraphs whose texts are their numbers.
void makeParagraphs(QTextDocument* document, const QList<int>& policies)
{
    QTextCursor cursor(document);
    for (int i = 0; i < policies.size(); ++i) {
        if (i > 0)
            cursor.insertBlock(QTextBlockFormat());
        QTextBlockFormat format;
        if (policies.at(i) != 0)
            format.setProperty(QTextFormat::PageBreakPolicy, policies.at(i));
        cursor.setBlockFormat(format);
        cursor.insertText(QString::number(i));
    }
}

QList<int> policiesOf(const QTextDocument& document)
{
    QList<int> policies;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        policies << block.blockFormat().intProperty(QTextFormat::PageBreakPolicy);
    return policies;
}

void addBreakAfter(const QTextBlock& block)
{
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysAfter);
    QTextCursor(block).setBlockFormat(format);
}

// Sets the working folder to a temporary one for as long as it lives.
class WorkingFolder {
public:
    WorkingFolder() : m_old(QDir::currentPath()) { QDir::setCurrent(m_folder.path()); }
    ~WorkingFolder() { QDir::setCurrent(m_old); }

    QString filePath(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    const QString m_old;
};

// A view of documents that fetches what a document lacks, as text browsers do.
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
    void clearedOptionKeepsTheRest()
    {
        QTextDocument document;
        QTextOption option;
        option.setAlignment(Qt::AlignHCenter);
        option.setTextDirection(Qt::RightToLeft);
        option.setWrapMode(QTextOption::NoWrap);
        option.setUseDesignMetrics(true);
        option.setFlags(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators
                        | QTextOption::IncludeTrailingSpaces);
        document.setDefaultTextOption(option);
        TextDocSupport::clearDefaultTextOptionFlags(&document);

        const QTextOption cleared = document.defaultTextOption();
        QCOMPARE(int(cleared.flags()), 0);
        QCOMPARE(int(cleared.alignment()), int(option.alignment()));
        QCOMPARE(cleared.textDirection(), Qt::RightToLeft);
        QCOMPARE(cleared.wrapMode(), QTextOption::NoWrap);
        QVERIFY(cleared.useDesignMetrics());
    }

    void optionWithoutFlagsIsLeftAlone()
    {
        QTextDocument document;
        QTextOption option;
        option.setAlignment(Qt::AlignRight);
        document.setDefaultTextOption(option);
        TextDocSupport::clearDefaultTextOptionFlags(&document);
        QCOMPARE(int(document.defaultTextOption().flags()), 0);
        QCOMPARE(int(document.defaultTextOption().alignment()), int(option.alignment()));
    }

    ORV_ROWS(pageBreaks)
    {
        const Rows add([](const QList<int>& policies, const QList<int>& normalized) {
            QTextDocument document;
            makeParagraphs(&document, policies);
            TextDocSupport::normalizePageBreaks(&document);
            QCOMPARE(policiesOf(document), normalized);
            TextDocSupport::normalizePageBreaks(&document);
            QCOMPARE(policiesOf(document), normalized);
        });
        add("none", {0, 0}, {0, 0});
        add("after becomes before the next", {After, 0, 0}, {0, Before, 0});
        add("before stays", {0, Before}, {0, Before});
        add("after and before are one break", {After, Before}, {0, Before});
        add("before and after one paragraph", {Before | After, 0}, {Before, Before});
        add("after several in a row", {After, After, After, 0}, {0, Before, Before, Before});
        add("after the last stays", {0, After}, {0, After});
        add("after the last two", {After, After}, {0, Before | After});
        add("after the only one", {After}, {After});
        add("between paragraphs without", {0, After, 0, 0, After, 0}, {0, 0, Before, 0, 0, Before});
        add("other bits stay", {After | KeepTogether, KeepWithNext, KeepTogether | KeepWithNext},
            {KeepTogether, Before | KeepWithNext, KeepTogether | KeepWithNext});
    }

    void pageBreakPolicyZeroIsNoProperty()
    {
        QTextDocument document;
        makeParagraphs(&document, {After, 0});
        TextDocSupport::normalizePageBreaks(&document);
        QVERIFY(!document.begin().blockFormat().hasProperty(QTextFormat::PageBreakPolicy));
    }

    // Blocks: 0 before the table, 1 and 2 in it, 3 after it.
    void pageBreaksAroundTables()
    {
        QTextDocument document;
        QTextCursor(&document).insertTable(1, 2);
        QCOMPARE(document.blockCount(), 4);
        addBreakAfter(document.findBlockByNumber(0));
        addBreakAfter(document.findBlockByNumber(2));
        TextDocSupport::normalizePageBreaks(&document);
        QCOMPARE(policiesOf(document), QList<int>({0, Before, 0, Before}));
        QCOMPARE(document.rootFrame()->childFrames().size(), 1);
    }

    void pageBreaksKeepFormatsAndLists()
    {
        QTextDocument document;
        makeParagraphs(&document, {0, 0});
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        QTextCursor(document.begin()).setBlockFormat(centred);
        QTextCursor(document.begin()).createList(QTextListFormat::ListDisc)->add(document.lastBlock());
        addBreakAfter(document.begin());
        TextDocSupport::normalizePageBreaks(&document);
        QCOMPARE(policiesOf(document), QList<int>({0, Before}));
        QVERIFY(document.begin().textList());
        QCOMPARE(document.begin().textList()->count(), 2);
        QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignHCenter));
    }

    void pageBreaksAreOneUndoStep()
    {
        QTextDocument document;
        const QList<int> policies = {After, After, 0};
        makeParagraphs(&document, policies);
        document.clearUndoRedoStacks();
        TextDocSupport::normalizePageBreaks(&document);
        document.undo();
        QVERIFY(!document.isUndoAvailable());
        QCOMPARE(policiesOf(document), policies);
    }

    void pageBreaksThatAreNormalChangeNothing()
    {
        QTextDocument document;
        makeParagraphs(&document, {0, Before, KeepTogether | After});
        document.clearUndoRedoStacks();
        document.setModified(false);
        TextDocSupport::normalizePageBreaks(&document);
        QVERIFY(!document.isModified());
        QVERIFY(!document.isUndoAvailable());
    }

    ORV_ROWS(imageResource)
    {
        const Rows add([](const QVariant& resource, const QImage& image) {
            QTextDocument document;
            document.addResource(QTextDocument::ImageResource, QUrl("orvimage:1"_s), resource);
            QCOMPARE(argb(TextDocSupport::image(&document, "orvimage:1"_s)), image);
        });
        const QImage image = makeImage(qRgba(10, 200, 30, 255));
        add("image", QVariant(image), image);
        add("pixmap", QVariant(QPixmap::fromImage(image)), image);
        add("encoded bytes", QVariant(pngOf(image)), image);
        add("other bytes", QVariant("no picture"_b), QImage());
        add("text", QVariant("no picture"_s), QImage());
        add("null image", QVariant(QImage()), QImage());
    }

    ORV_ROWS(imageNames)
    {
        const Rows add([](const QString& name) {
            QTextDocument document;
            const QImage image = makeImage(qRgb(1, 1, 1));
            document.addResource(QTextDocument::ImageResource, QUrl("other"_s), makeImage(qRgb(2, 2, 2)));
            document.addResource(QTextDocument::ImageResource, QUrl(name), image);
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
        add("damaged data URL", "data:image/png;base64,AAAA");
    }

    ORV_ROWS(compiledResource)
    {
        const Rows add([](const QString& name, bool isPicture) {
            QTextDocument document;
            const QImage image = TextDocSupport::image(&document, name);
            QCOMPARE(image.isNull(), !isPicture);
            if (isPicture) {
                QCOMPARE(image.size(), QSize(2, 1));
                QCOMPARE(image.pixel(0, 0), qRgb(255, 0, 0));
                QCOMPARE(image.pixel(1, 0), qRgb(0, 255, 0));
            }
        });
        add("picture", "qrc:/images/dot.png", true);
        add("no picture", "qrc:/images/no picture.txt", false);
        add("unknown", "qrc:/images/none.png", false);
    }

    void baseUrlAppliesToNames()
    {
        QTextDocument document;
        const QImage image = addImage(&document, "store:/pictures/1"_s, qRgb(7, 8, 9));
        document.setBaseUrl(QUrl("store:/pictures/"_s));
        QCOMPARE(TextDocSupport::image(&document, "1"_s), image);
        QVERIFY(TextDocSupport::image(&document, "2"_s).isNull());
        document.setBaseUrl(QUrl("qrc:/images/"_s));
        QCOMPARE(TextDocSupport::image(&document, "dot.png"_s).size(), QSize(2, 1));
    }

    ORV_ROWS(filesAreNeverLoaded)
    {
        const Rows add([](QString name, QString documentUrl) {
            const WorkingFolder folder;
            const QString path = folder.filePath("picture.png"_s);
            QVERIFY(makeImage(qRgb(1, 2, 3)).save(path));
            const QString folderPath = QFileInfo(path).absolutePath();
            name.replace("%1"_s, folderPath);
            QTextDocument document;
            document.setMetaInformation(QTextDocument::DocumentUrl, documentUrl.replace("%1"_s, folderPath));
            QVERIFY(TextDocSupport::image(&document, name).isNull());
            QVERIFY(!document.parent());
            document.setBaseUrl(QUrl::fromLocalFile(folderPath + QLatin1Char('/')));
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
        const WorkingFolder folder;
        QVERIFY(makeImage(qRgb(1, 2, 3)).save(folder.filePath("picture.png"_s)));
        QTextDocument document;
        const QImage stored = addImage(&document, "picture.png"_s, qRgb(200, 100, 0));
        QCOMPARE(TextDocSupport::image(&document, "picture.png"_s), stored);
    }

    void parentIsNotAskedForFiles()
    {
        FetchingParent parent;
        QTextDocument* document = new QTextDocument(&parent);
        const QImage stored = addImage(document, "stored.png"_s, qRgb(200, 100, 0));
        QCOMPARE(TextDocSupport::image(document, "stored.png"_s), stored);
        QVERIFY(TextDocSupport::image(document, "other.png"_s).isNull());
        QCOMPARE(parent.asked, QStringList());
        QCOMPARE(document->parent(), &parent);
        QCOMPARE(parent.children(), QObjectList() << document);
    }

    void documentOfAnotherThread()
    {
        const WorkingFolder folder;
        QVERIFY(makeImage(qRgb(1, 2, 3)).save(folder.filePath("picture.png"_s)));
        QThread idle;
        QTextDocument document;
        const QImage stored = addImage(&document, "stored.png"_s, qRgb(200, 100, 0));
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

    void nullDocument()
    {
        TextDocSupport::clearDefaultTextOptionFlags(nullptr);
        TextDocSupport::normalizePageBreaks(nullptr);
        QVERIFY(TextDocSupport::image(nullptr, "qrc:/images/dot.png"_s).isNull());
    }
};

ORV_TEST("textdocsupport", TestTextDocSupport, QGuiApplication)
#include "textdocsupport.moc"
