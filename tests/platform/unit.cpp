#include "ORVUnit.h"
#include "testsupport.h"

namespace {

const int intMax = std::numeric_limits<int>::max();
const int intMin = std::numeric_limits<int>::min();

} // namespace

class TestUnit : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ORVUnit::setScreenResolution(96); }

    void resolutionIs96UnlessSet()
    {
        QCOMPARE(ORVUnit::screenResolution(), 96);
        ORVUnit::setScreenResolution(144);
        QCOMPARE(ORVUnit::screenResolution(), 144);
        for (const int invalid : {0, -96, intMin}) {
            ORVUnit::setScreenResolution(invalid);
            QCOMPARE(ORVUnit::screenResolution(), 144);
        }
    }

    ORV_ROWS(twipsToPixels)
    {
        const Rows add([](int dpi, int twips, int pixels) {
            ORVUnit::setScreenResolution(dpi);
            QCOMPARE(ORVUnit::rtfTwipsToPixels(twips), pixels);
        });
        add("zero", 96, 0, 0);
        add("an inch", 96, 1440, 96);
        add("one pixel", 96, 15, 1);
        add("below half a pixel", 96, 7, 0);
        add("above half a pixel", 96, 8, 1);
        add("negative, below half a pixel", 96, -7, 0);
        add("negative, above half a pixel", 96, -8, -1);
        add("an inch at 300 dpi", 300, 1440, 300);
        add("half, away from zero", 144, 5, 1);
        add("half above one", 144, 15, 2);
        add("negative half", 144, -5, -1);
        add("negative half below one", 144, -15, -2);
        add("largest int", 96, intMax, 143165576);
        add("smallest int", 96, intMin, -143165577);
        add("beyond the largest int", intMax, 2880, intMax);
        add("beyond the smallest int", intMax, intMin, intMin);
    }

    ORV_ROWS(pixelsToTwips)
    {
        const Rows add([](int dpi, int pixels, int twips) {
            ORVUnit::setScreenResolution(dpi);
            QCOMPARE(ORVUnit::rtfPixelsToTwips(pixels), twips);
        });
        add("zero", 96, 0, 0);
        add("an inch", 96, 96, 1440);
        add("one pixel", 96, 1, 15);
        add("negative", 96, -3, -45);
        add("an inch at 72 dpi", 72, 72, 1440);
        add("rounded down", 1000, 1, 1);
        add("rounded up", 800, 1, 2);
        add("half, away from zero", 2880, 1, 1);
        add("half above one", 2880, 3, 2);
        add("negative half", 2880, -1, -1);
        add("negative half below one", 2880, -3, -2);
        add("resolution that no int product holds", intMax, intMax, 1440);
        add("beyond the largest int", 96, intMax, intMax);
        add("beyond the smallest int", 96, intMin, intMin);
    }
};

ORV_TEST("unit", TestUnit, QCoreApplication)
#include "unit.moc"
