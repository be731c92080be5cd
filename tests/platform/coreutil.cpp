#include "ORVCoreUtil.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QtTest>

#include <thread>
#include <vector>

class TestCoreUtil : public QObject {
    Q_OBJECT

private slots:
    void tempFilePathEndsInSuffix_data();
    void tempFilePathEndsInSuffix();
    void tempFilePathLiesInTempFolder();
    void tempFileIsNotCreated();
    void tempFilePathsOfAllThreadsDiffer();
};

void TestCoreUtil::tempFilePathEndsInSuffix_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("completeSuffix");

    QTest::newRow("one word") << "rtf"
                              << "rtf";
    QTest::newRow("two words") << "tar.gz"
                               << "tar.gz";
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("null") << QString() << "";
}

void TestCoreUtil::tempFilePathEndsInSuffix()
{
    QFETCH(QString, suffix);
    QFETCH(QString, completeSuffix);
    const QFileInfo info(ORVCoreUtil::GetNewTempFilePath(suffix));
    QCOMPARE(info.completeSuffix(), completeSuffix);
    QCOMPARE(info.fileName().contains(QLatin1Char('.')), !completeSuffix.isEmpty());
    QVERIFY(!info.completeBaseName().isEmpty());
}

void TestCoreUtil::tempFilePathLiesInTempFolder()
{
    const QFileInfo info(ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf")));
    QVERIFY(info.isAbsolute());
    QCOMPARE(info.absolutePath(), QFileInfo(QDir::tempPath()).absoluteFilePath());
}

void TestCoreUtil::tempFileIsNotCreated()
{
    QVERIFY(!QFileInfo::exists(ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf"))));
}

void TestCoreUtil::tempFilePathsOfAllThreadsDiffer()
{
    const int threadCount = 4;
    const int callCount = 500;
    std::vector<QStringList> paths(threadCount);
    std::vector<std::thread> threads;
    for (QStringList& own : paths) {
        threads.emplace_back([&own]() {
            for (int i = 0; i < callCount; ++i)
                own.append(ORVCoreUtil::GetNewTempFilePath(QString()));
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    QSet<QString> distinct;
    for (const QStringList& own : paths) {
        for (const QString& path : own)
            distinct.insert(path);
    }
    QCOMPARE(distinct.size(), threadCount * callCount);
}

QTEST_GUILESS_MAIN(TestCoreUtil)
#include "tst_coreutil.moc"
