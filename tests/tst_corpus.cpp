#include <ORVTextRtfReader.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>
#include <QTextDocument>

/*! Every RTF file of a folder of real ones: reading ends, with one of the documented status codes. */
class tst_corpus : public QObject {
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
};

static QString corpusDir()
{
    return QString::fromUtf8(ORVRTF_CORPUS_DIR);
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

QTEST_MAIN(tst_corpus)
#include "tst_corpus.moc"
