#include "ORVCoreUtil.h"
#include "testsupport.h"

using ORVCoreUtil::GetNewTempFilePath;

class TestCoreUtil : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(tempFilePathEndsInSuffix)
    {
        const Rows add([](const QString& suffix, const QString& completeSuffix) {
            const QFileInfo info(GetNewTempFilePath(suffix));
            QCOMPARE(info.completeSuffix(), completeSuffix);
            QCOMPARE(info.fileName().contains(QLatin1Char('.')), !completeSuffix.isEmpty());
            QVERIFY(!info.completeBaseName().isEmpty());
        });
        add("one word", "rtf", "rtf");
        add("two words", "tar.gz", "tar.gz");
        add("none", "", "");
        add("null", QString(), "");
    }

    void tempFilePathLiesInTempFolder()
    {
        const QFileInfo info(GetNewTempFilePath("rtf"_s));
        QVERIFY(info.isAbsolute());
        QCOMPARE(info.absolutePath(), QFileInfo(QDir::tempPath()).absoluteFilePath());
        QVERIFY(!info.exists());
    }

    void tempFilePathsOfAllThreadsDiffer()
    {
        const int threadCount = 4;
        const int callCount = 500;
        std::vector<QStringList> paths(threadCount);
        std::vector<std::thread> threads;
        for (QStringList& own : paths) {
            threads.emplace_back([&own]() {
                for (int i = 0; i < callCount; ++i)
                    own.append(GetNewTempFilePath(QString()));
            });
        }
        for (std::thread& thread : threads)
            thread.join();

        QSet<QString> distinct;
        for (const QStringList& own : paths)
            distinct += QSet<QString>(own.begin(), own.end());
        QCOMPARE(distinct.size(), threadCount * callCount);
    }
};

ORV_TEST("coreutil", TestCoreUtil, QCoreApplication)
#include "coreutil.moc"
