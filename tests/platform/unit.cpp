#include "ORVUnit.h"

#include <QtTest>

#include <limits>

namespace {

const int intMax = std::numeric_limits<int>::max();
const int intMin = std::numeric_limits<int>::min();

} // namespace

class TestUnit : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void resolutionIs96UnlessSet();
    void invalidResolutionIsIgnored_data();
    void invalidResolutionIsIgnored();
    void twipsToPixels_data();
    void twipsToPixels();
    void pixelsToTwips_data();
    void pixelsToTwips();
};

void TestUnit::cleanup()
{
    ORVUnit::setScreenResolution(96);
}

void TestUnit::resolutionIs96UnlessSet()
{
    QCOMPARE(ORVUnit::screenResolution(), 96);
    ORVUnit::setScreenResolution(144);
    QCOMPARE(ORVUnit::screenResolution(), 144);
}

void TestUnit::invalidResolutionIsIgnored_data()
{
    QTest::addColumn<int>("dpi");

    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -96;
    QTest::newRow("smallest int") << intMin;
}

void TestUnit::invalidResolutionIsIgnored()
{
    QFETCH(int, dpi);
    ORVUnit::setScreenResolution(120);
    ORVUnit::setScreenResolution(dpi);
    QCOMPARE(ORVUnit::screenResolution(), 120);
}

void TestUnit::twipsToPixels_data()
{
    QTest::addColumn<int>("dpi");
    QTest::addColumn<int>("twips");
    QTest::addColumn<int>("pixels");

    QTest::newRow("zero") << 96 << 0 << 0;
    QTest::newRow("an inch") << 96 << 1440 << 96;
    QTest::newRow("one pixel") << 96 << 15 << 1;
    QTest::newRow("below half a pixel") << 96 << 7 << 0;
    QTest::newRow("above half a pixel") << 96 << 8 << 1;
    QTest::newRow("negative, below half a pixel") << 96 << -7 << 0;
    QTest::newRow("negative, above half a pixel") << 96 << -8 << -1;
    QTest::newRow("an inch at 300 dpi") << 300 << 1440 << 300;
    QTest::newRow("half, away from zero") << 144 << 5 << 1;
    QTest::newRow("half above one") << 144 << 15 << 2;
    QTest::newRow("negative half") << 144 << -5 << -1;
    QTest::newRow("negative half below one") << 144 << -15 << -2;
    QTest::newRow("largest int") << 96 << intMax << 143165576;
    QTest::newRow("smallest int") << 96 << intMin << -143165577;
    QTest::newRow("beyond the largest int") << intMax << 2880 << intMax;
    QTest::newRow("beyond the smallest int") << intMax << intMin << intMin;
}

void TestUnit::twipsToPixels()
{
    QFETCH(int, dpi);
    QFETCH(int, twips);
    ORVUnit::setScreenResolution(dpi);
    QTEST(ORVUnit::rtfTwipsToPixels(twips), "pixels");
}

void TestUnit::pixelsToTwips_data()
{
    QTest::addColumn<int>("dpi");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("twips");

    QTest::newRow("zero") << 96 << 0 << 0;
    QTest::newRow("an inch") << 96 << 96 << 1440;
    QTest::newRow("one pixel") << 96 << 1 << 15;
    QTest::newRow("negative") << 96 << -3 << -45;
    QTest::newRow("an inch at 72 dpi") << 72 << 72 << 1440;
    QTest::newRow("rounded down") << 1000 << 1 << 1;
    QTest::newRow("rounded up") << 800 << 1 << 2;
    QTest::newRow("half, away from zero") << 2880 << 1 << 1;
    QTest::newRow("half above one") << 2880 << 3 << 2;
    QTest::newRow("negative half") << 2880 << -1 << -1;
    QTest::newRow("negative half below one") << 2880 << -3 << -2;
    QTest::newRow("resolution that no int product holds") << intMax << intMax << 1440;
    QTest::newRow("beyond the largest int") << 96 << intMax << intMax;
    QTest::newRow("beyond the smallest int") << 96 << intMin << intMin;
}

void TestUnit::pixelsToTwips()
{
    QFETCH(int, dpi);
    QFETCH(int, pixels);
    ORVUnit::setScreenResolution(dpi);
    QTEST(ORVUnit::rtfPixelsToTwips(pixels), "twips");
}

QTEST_GUILESS_MAIN(TestUnit)
#include "tst_unit.moc"
