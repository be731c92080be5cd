#include "rtfwritinghelpers.h"
#include "structurehelpers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>
#include <QTextDocument>

/*!
    Every RTF file of a folder of real ones: reading ends, with one of the documented status codes, and tables
    and lists are the same after they were written and read.
*/
class tst_corpus : public QObject {
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void keepsTablesAndLists_data();
    void keepsTablesAndLists();
};

static QString corpusDir()
{
    return QString::fromUtf8(ORVRTF_CORPUS_DIR);
}

/*! Why lists of a file are not the same after writing and reading; null when they are. */
static const char* reasonOfListDifference(const QString& name)
{
    if (name == QLatin1String("striprtf-python/issue_63.rtf"))
        return "its list is in no list table and says nothing, not even a style; the list written for it "
               "does";
    return nullptr;
}

void tst_corpus::reads_data()
{
    QTest::addColumn<QString>("path");

    QStringList paths;
    QDirIterator it(corpusDir(), {QLatin1String("*.rtf")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        paths << it.next();
    paths.sort();
    QVERIFY(!paths.isEmpty());
    for (const QString& path : paths)
        QTest::newRow(qPrintable(QDir(corpusDir()).relativeFilePath(path))) << path;
}

void tst_corpus::reads()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    QTextDocument document;
    ORVTextRtfReader reader(&file);
    const bool ok = reader.read(&document);
    QVERIFY2(reader.error() >= 0 && reader.error() <= 10, qPrintable(QString::number(reader.error())));
    QCOMPARE(ok, reader.error() == 0);
    QCOMPARE(reader.errorString().isEmpty(), ok);
    QVERIFY(file.atEnd());
}

void tst_corpus::keepsTablesAndLists_data()
{
    reads_data();
}

void tst_corpus::keepsTablesAndLists()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    const char* const reason = reasonOfListDifference(QDir(corpusDir()).relativeFilePath(path));
    const rtftest::Reading original = rtftest::read(file.readAll());
    for (const bool exportingMode : {false, true}) {
        rtftest::WriteSettings settings;
        settings.exportingMode = exportingMode;
        const rtftest::Reading again = rtftest::read(rtftest::write(*original.document, settings));
        QCOMPARE(again.status, 0);
        QCOMPARE(rtftest::tableLines(*again.document), rtftest::tableLines(*original.document));
        QCOMPARE(rtftest::itemLines(*again.document), rtftest::itemLines(*original.document));
        if (reason)
            QVERIFY2(rtftest::listLines(*again.document) != rtftest::listLines(*original.document), reason);
        else
            QCOMPARE(rtftest::listLines(*again.document), rtftest::listLines(*original.document));
    }
}

QTEST_MAIN(tst_corpus)
#include "tst_corpus.moc"
