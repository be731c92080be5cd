#include "testsupport.h"

namespace {

QString corpusDir()
{
    return QFile::decodeName(qgetenv("ORVRTF_CORPUS"));
}

/*! Why lists of a file are not the same after writing and reading; null when they are. */
const char* reasonOfListDifference(const QString& name)
{
    if (name == "striprtf-python/issue_63.rtf"_s)
        return "its list is in no list table and says nothing, not even a style; the list written for it "
               "does";
    return nullptr;
}

} // namespace

/*!
    Every RTF file of a folder of real ones: reading ends, with one of the documented status codes, and tables
    and lists are the same after they were written and read.
*/
class TestCorpus : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(reads)
    {
        const Rows add([](const QString& path) {
            QFile file(path);
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
            QTextDocument document;
            ORVTextRtfReader reader(&file);
            const bool ok = reader.read(&document);
            QVERIFY2(reader.error() >= 0 && reader.error() <= 10,
                     qPrintable(QString::number(reader.error())));
            QCOMPARE(ok, reader.error() == 0);
            QCOMPARE(reader.errorString().isEmpty(), ok);
            QVERIFY(file.atEnd());
        });
        addFiles(add);
    }

    ORV_ROWS(keepsTablesAndLists)
    {
        const Rows add([](const QString& path) {
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
                    QVERIFY2(rtftest::listLines(*again.document) != rtftest::listLines(*original.document),
                             reason);
                else
                    QCOMPARE(rtftest::listLines(*again.document), rtftest::listLines(*original.document));
            }
        });
        addFiles(add);
    }

private:
    template <typename AddRow>
    static void addFiles(const AddRow& add)
    {
        QStringList paths;
        QDirIterator it(corpusDir(), {"*.rtf"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            paths << it.next();
        paths.sort();
        QVERIFY(!paths.isEmpty());
        for (const QString& path : paths)
            add(qPrintable(QDir(corpusDir()).relativeFilePath(path)), path);
    }
};

static int runTestCorpus(int argc, char** argv)
{
    if (corpusDir().isEmpty())
        return registry::skip("ORVRTF_CORPUS names no folder of RTF files");
    return registry::run<TestCorpus, QGuiApplication>(argc, argv);
}

ORV_TEST_MAIN("corpus", runTestCorpus, TestCorpus)
#include "corpus.moc"
