#include "TextDocSupport.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QThread>
#include <QUrl>
#include <QtTest>

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
    void clearedOptionKeepsTheRest();
    void optionWithoutFlagsIsLeftAlone();

    void pageBreaks_data();
    void pageBreaks();
    void pageBreakPolicyZeroIsNoProperty();
    void pageBreaksAroundTables();
    void pageBreaksKeepFormatsAndLists();
    void pageBreaksAreOneUndoStep();
    void pageBreaksThatAreNormalChangeNothing();

    void imageResource_data();
    void imageResource();
    void imageNames_data();
    void imageNames();
    void noImage_data();
    void noImage();
    void compiledResource_data();
    void compiledResource();
    void baseUrlAppliesToNames();
    void filesAreNeverLoaded_data();
    void filesAreNeverLoaded();
    void storedImageWinsOverFile();
    void parentIsNotAskedForFiles();
    void documentOfAnotherThread();

    void nullDocument();
};

void TestTextDocSupport::clearedOptionKeepsTheRest()
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

void TestTextDocSupport::optionWithoutFlagsIsLeftAlone()
{
    QTextDocument document;
    QTextOption option;
    option.setAlignment(Qt::AlignRight);
    document.setDefaultTextOption(option);
    TextDocSupport::clearDefaultTextOptionFlags(&document);
    QCOMPARE(int(document.defaultTextOption().flags()), 0);
    QCOMPARE(int(document.defaultTextOption().alignment()), int(option.alignment()));
}

void TestTextDocSupport::pageBreaks_data()
{
    QTest::addColumn<QList<int>>("policies");
    QTest::addColumn<QList<int>>("normalized");

    typedef QList<int> L;
    QTest::newRow("none") << (L() << 0 << 0) << (L() << 0 << 0);
    QTest::newRow("after becomes before the next") << (L() << After << 0 << 0) << (L() << 0 << Before << 0);
    QTest::newRow("before stays") << (L() << 0 << Before) << (L() << 0 << Before);
    QTest::newRow("after and before are one break") << (L() << After << Before) << (L() << 0 << Before);
    QTest::newRow("before and after one paragraph")
        << (L() << (Before | After) << 0) << (L() << Before << Before);
    QTest::newRow("after several in a row")
        << (L() << After << After << After << 0) << (L() << 0 << Before << Before << Before);
    QTest::newRow("after the last stays") << (L() << 0 << After) << (L() << 0 << After);
    QTest::newRow("after the last two") << (L() << After << After) << (L() << 0 << (Before | After));
    QTest::newRow("after the only one") << (L() << After) << (L() << After);
    QTest::newRow("between paragraphs without")
        << (L() << 0 << After << 0 << 0 << After << 0) << (L() << 0 << 0 << Before << 0 << 0 << Before);
    QTest::newRow("other bits stay") << (L() << (After | KeepTogether) << KeepWithNext
                                             << (KeepTogether | KeepWithNext))
                                     << (L() << KeepTogether << (Before | KeepWithNext)
                                             << (KeepTogether | KeepWithNext));
}

void TestTextDocSupport::pageBreaks()
{
    QFETCH(QList<int>, policies);
    QFETCH(QList<int>, normalized);
    QTextDocument document;
    makeParagraphs(&document, policies);
    TextDocSupport::normalizePageBreaks(&document);
    QCOMPARE(policiesOf(document), normalized);
    TextDocSupport::normalizePageBreaks(&document);
    QCOMPARE(policiesOf(document), normalized);
}

void TestTextDocSupport::pageBreakPolicyZeroIsNoProperty()
{
    QTextDocument document;
    makeParagraphs(&document, QList<int>() << After << 0);
    TextDocSupport::normalizePageBreaks(&document);
    QVERIFY(!document.begin().blockFormat().hasProperty(QTextFormat::PageBreakPolicy));
}

// Blocks: 0 before the table, 1 and 2 in it, 3 after it.
void TestTextDocSupport::pageBreaksAroundTables()
{
    QTextDocument document;
    QTextCursor(&document).insertTable(1, 2);
    QCOMPARE(document.blockCount(), 4);
    addBreakAfter(document.findBlockByNumber(0));
    addBreakAfter(document.findBlockByNumber(2));
    TextDocSupport::normalizePageBreaks(&document);
    QCOMPARE(policiesOf(document), QList<int>() << 0 << Before << 0 << Before);
    QCOMPARE(document.rootFrame()->childFrames().size(), 1);
}

void TestTextDocSupport::pageBreaksKeepFormatsAndLists()
{
    QTextDocument document;
    makeParagraphs(&document, QList<int>() << 0 << 0);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    QTextCursor(document.begin()).setBlockFormat(centred);
    QTextCursor(document.begin()).createList(QTextListFormat::ListDisc)->add(document.lastBlock());
    addBreakAfter(document.begin());
    TextDocSupport::normalizePageBreaks(&document);
    QCOMPARE(policiesOf(document), QList<int>() << 0 << Before);
    QVERIFY(document.begin().textList());
    QCOMPARE(document.begin().textList()->count(), 2);
    QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignHCenter));
}

void TestTextDocSupport::pageBreaksAreOneUndoStep()
{
    QTextDocument document;
    const QList<int> policies = QList<int>() << After << After << 0;
    makeParagraphs(&document, policies);
    document.clearUndoRedoStacks();
    TextDocSupport::normalizePageBreaks(&document);
    document.undo();
    QVERIFY(!document.isUndoAvailable());
    QCOMPARE(policiesOf(document), policies);
}

void TestTextDocSupport::pageBreaksThatAreNormalChangeNothing()
{
    QTextDocument document;
    makeParagraphs(&document, QList<int>() << 0 << Before << (KeepTogether | After));
    document.clearUndoRedoStacks();
    document.setModified(false);
    TextDocSupport::normalizePageBreaks(&document);
    QVERIFY(!document.isModified());
    QVERIFY(!document.isUndoAvailable());
}

void TestTextDocSupport::imageResource_data()
{
    QTest::addColumn<QVariant>("resource");
    QTest::addColumn<QImage>("image");

    const QImage image = makeImage(qRgba(10, 200, 30, 255));
    QTest::newRow("image") << QVariant(image) << image;
    QTest::newRow("pixmap") << QVariant(QPixmap::fromImage(image)) << image;
    QTest::newRow("encoded bytes") << QVariant(pngOf(image)) << image;
    QTest::newRow("other bytes") << QVariant(QByteArray("no picture")) << QImage();
    QTest::newRow("text") << QVariant(QString(QLatin1String("no picture"))) << QImage();
    QTest::newRow("null image") << QVariant(QImage()) << QImage();
}

void TestTextDocSupport::imageResource()
{
    QFETCH(QVariant, resource);
    QFETCH(QImage, image);
    QTextDocument document;
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("orvimage:1")), resource);
    QCOMPARE(argb(TextDocSupport::image(&document, QLatin1String("orvimage:1"))), image);
}

void TestTextDocSupport::imageNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("name") << "Image1";
    QTest::newRow("file name") << "picture.png";
    QTest::newRow("path") << "/no/such/folder/picture.png";
    QTest::newRow("relative path") << "../pictures/picture.png";
    QTest::newRow("file URL") << "file:///no/such/folder/picture.png";
    QTest::newRow("http URL") << "http://example.org/picture.png?size=1#top";
    QTest::newRow("own scheme") << "orvimage:0123abcd";
    QTest::newRow("blanks and letters") << QString::fromUtf8("caf\xc3\xa9 1.png");
    QTest::newRow("stored over a compiled one") << "qrc:/images/dot.png";
}

void TestTextDocSupport::imageNames()
{
    QFETCH(QString, name);
    QTextDocument document;
    const QImage image = makeImage(qRgb(1, 1, 1));
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("other")),
                         makeImage(qRgb(2, 2, 2)));
    document.addResource(QTextDocument::ImageResource, QUrl(name), image);
    QCOMPARE(TextDocSupport::image(&document, name), image);
}

void TestTextDocSupport::noImage_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << "";
    QTest::newRow("unknown name") << "no such name";
    QTest::newRow("unknown path") << "/no/such/file.png";
    QTest::newRow("unknown URL") << "http://example.org/none.png";
    QTest::newRow("not a URL") << "http://[";
    QTest::newRow("compiled name without scheme") << ":/images/dot.png";
    QTest::newRow("damaged data URL") << "data:image/png;base64,AAAA";
}

void TestTextDocSupport::noImage()
{
    QFETCH(QString, name);
    QTextDocument document;
    QVERIFY(TextDocSupport::image(&document, name).isNull());
}

void TestTextDocSupport::compiledResource_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPicture");

    QTest::newRow("picture") << "qrc:/images/dot.png" << true;
    QTest::newRow("no picture") << "qrc:/images/no picture.txt" << false;
    QTest::newRow("unknown") << "qrc:/images/none.png" << false;
}

void TestTextDocSupport::compiledResource()
{
    QFETCH(QString, name);
    QFETCH(bool, isPicture);
    QTextDocument document;
    const QImage image = TextDocSupport::image(&document, name);
    QCOMPARE(image.isNull(), !isPicture);
    if (isPicture) {
        QCOMPARE(image.size(), QSize(2, 1));
        QCOMPARE(image.pixel(0, 0), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(1, 0), qRgb(0, 255, 0));
    }
}

void TestTextDocSupport::baseUrlAppliesToNames()
{
    QTextDocument document;
    const QImage image = makeImage(qRgb(7, 8, 9));
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("store:/pictures/1")), image);
    document.setBaseUrl(QUrl(QLatin1String("store:/pictures/")));
    QCOMPARE(TextDocSupport::image(&document, QLatin1String("1")), image);
    QVERIFY(TextDocSupport::image(&document, QLatin1String("2")).isNull());

    document.setBaseUrl(QUrl(QLatin1String("qrc:/images/")));
    QCOMPARE(TextDocSupport::image(&document, QLatin1String("dot.png")).size(), QSize(2, 1));
}

void TestTextDocSupport::filesAreNeverLoaded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("documentUrl");

    // %1 stands for the working folder, in which picture.png lies.
    QTest::newRow("file name") << "picture.png"
                               << "";
    QTest::newRow("relative path") << "./picture.png"
                                   << "";
    QTest::newRow("absolute path") << "%1/picture.png"
                                   << "";
    QTest::newRow("file URL") << "file://%1/picture.png"
                              << "";
    QTest::newRow("file URL, in capitals") << "FILE://%1/picture.png"
                                           << "";
    QTest::newRow("file URL of a relative path") << "file:picture.png"
                                                 << "";
    QTest::newRow("beside the document") << "picture.png"
                                         << "file://%1/document.html";
    QTest::newRow("document's own URL") << ""
                                        << "file://%1/picture.png";
    QTest::newRow("place in the document") << "#there"
                                           << "file://%1/picture.png";
}

void TestTextDocSupport::filesAreNeverLoaded()
{
    QFETCH(QString, name);
    QFETCH(QString, documentUrl);
    const WorkingFolder folder;
    const QString path = folder.filePath(QLatin1String("picture.png"));
    QVERIFY(makeImage(qRgb(1, 2, 3)).save(path));
    const QString folderPath = QFileInfo(path).absolutePath();
    name.replace(QLatin1String("%1"), folderPath);

    QTextDocument document;
    document.setMetaInformation(QTextDocument::DocumentUrl,
                                documentUrl.replace(QLatin1String("%1"), folderPath));
    QVERIFY(TextDocSupport::image(&document, name).isNull());
    QVERIFY(!document.parent());
    document.setBaseUrl(QUrl::fromLocalFile(folderPath + QLatin1Char('/')));
    QVERIFY(TextDocSupport::image(&document, name).isNull());
}

void TestTextDocSupport::storedImageWinsOverFile()
{
    const WorkingFolder folder;
    QVERIFY(makeImage(qRgb(1, 2, 3)).save(folder.filePath(QLatin1String("picture.png"))));
    QTextDocument document;
    const QImage stored = makeImage(qRgb(200, 100, 0));
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("picture.png")), stored);
    QCOMPARE(TextDocSupport::image(&document, QLatin1String("picture.png")), stored);
}

void TestTextDocSupport::parentIsNotAskedForFiles()
{
    FetchingParent parent;
    QTextDocument* document = new QTextDocument(&parent);
    const QImage stored = makeImage(qRgb(200, 100, 0));
    document->addResource(QTextDocument::ImageResource, QUrl(QLatin1String("stored.png")), stored);
    QCOMPARE(TextDocSupport::image(document, QLatin1String("stored.png")), stored);
    QVERIFY(TextDocSupport::image(document, QLatin1String("other.png")).isNull());
    QCOMPARE(parent.asked, QStringList());
    QCOMPARE(document->parent(), &parent);
    QCOMPARE(parent.children(), QObjectList() << document);
}

void TestTextDocSupport::documentOfAnotherThread()
{
    const WorkingFolder folder;
    QVERIFY(makeImage(qRgb(1, 2, 3)).save(folder.filePath(QLatin1String("picture.png"))));
    QThread idle;
    QTextDocument document;
    const QImage stored = makeImage(qRgb(200, 100, 0));
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("stored.png")), stored);
    document.moveToThread(&idle);
    QCOMPARE(TextDocSupport::image(&document, QLatin1String("stored.png")), stored);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTest::ignoreMessage(
        QtWarningMsg,
        "QMetaMethod::invoke: Unable to invoke methods with return values in queued connections");
#endif
    QVERIFY(TextDocSupport::image(&document, QLatin1String("picture.png")).isNull());
    QCOMPARE(document.thread(), &idle);
    QVERIFY(!document.parent());
}

void TestTextDocSupport::nullDocument()
{
    TextDocSupport::clearDefaultTextOptionFlags(nullptr);
    TextDocSupport::normalizePageBreaks(nullptr);
    QVERIFY(TextDocSupport::image(nullptr, QLatin1String("qrc:/images/dot.png")).isNull());
}

QTEST_MAIN(TestTextDocSupport)
#include "tst_textdocsupport.moc"
