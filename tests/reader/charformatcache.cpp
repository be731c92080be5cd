#include "ORVRtfCharFormatCache_p.h"
#include "testsupport.h"

/*! Cached changes of character formats have the same results as changes that are not cached. */
class TestCharFormatCache : public QObject {
    Q_OBJECT

private slots:
    // Long enough for everything that is remembered to be recalled and replaced many times.
    void changesAreThoseOfTheFormat()
    {
        const int flags[] = {QTextFormat::FontItalic, QTextFormat::FontStrikeOut,
                             QTextFormat::FontFixedPitch};
        std::mt19937 random(11);
        ORVRtfCharFormatCache changes;
        QTextCharFormat changed;
        QTextCharFormat expected;
        for (int i = 0; i < 5000; ++i) {
            const int value = int(random() % 7);
            const int flag = flags[random() % 3];
            switch (random() % 6) {
            case 0:
                changes.set(changed, QTextFormat::FontPointSize, value * 0.5);
                expected.setProperty(QTextFormat::FontPointSize, value * 0.5);
                break;
            case 1:
                changes.set(changed, QTextFormat::FontWeight, value - 3);
                expected.setProperty(QTextFormat::FontWeight, value - 3);
                break;
            case 2:
                changes.set(changed, flag, value > 3);
                expected.setProperty(flag, value > 3);
                break;
            case 3:
                changes.clear(changed, flag);
                expected.clearProperty(flag);
                break;
            case 4:
                changes.set(
                    changed, QTextFormat::ForegroundBrush, quint64(value),
                    [=](QTextCharFormat& format) { format.setForeground(QBrush(QColor(value, 0, 0))); });
                expected.setForeground(QBrush(QColor(value, 0, 0)));
                break;
            default: changed = QTextCharFormat(); expected = QTextCharFormat();
            }
            QCOMPARE(changed, expected);
        }
    }

    void rememberedChangesAreNotMadeAgain()
    {
        ORVRtfCharFormatCache changes;
        int made = 0;
        const auto change = [&](QTextCharFormat& format) {
            ++made;
            format.setFontItalic(true);
        };
        for (int i = 0; i < 3; ++i) {
            QTextCharFormat format;
            changes.set(format, QTextFormat::FontItalic, 1, change);
            QCOMPARE(made, 1);
            QVERIFY(format.fontItalic());
        }
    }

    void everythingThatCountsIsCompared()
    {
        ORVRtfCharFormatCache changes;
        int made = 0;
        const auto change = [&](QTextCharFormat&) { ++made; };
        QTextCharFormat plain;
        QTextCharFormat large;
        large.setFontPointSize(30);
        changes.set(plain, 1, 7, change);
        changes.set(large, 1, 7, change);
        QCOMPARE(made, 2);
        changes.set(plain, 2, 7, change);
        QCOMPARE(made, 3);
        changes.set(plain, 1, 8, change);
        QCOMPARE(made, 4);
        changes.set(large, 1, 7, change);
        QCOMPARE(made, 4);
        QCOMPARE(large.fontPointSize(), 30.0);
    }

    void onlyTheLastAreRemembered()
    {
        ORVRtfCharFormatCache changes;
        int made = 0;
        const auto change = [&](QTextCharFormat&) { ++made; };
        QTextCharFormat format;
        const int remembered = 16;
        for (int value = 0; value <= remembered; ++value)
            changes.set(format, 1, quint64(value), change);
        QCOMPARE(made, remembered + 1);
        changes.set(format, 1, quint64(remembered), change);
        QCOMPARE(made, remembered + 1);
        changes.set(format, 1, 0, change);
        QCOMPARE(made, remembered + 2);
    }

    void clearingIsNoSettingToZero()
    {
        ORVRtfCharFormatCache changes;
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        QTextCharFormat format(underlined);
        changes.set(format, QTextFormat::TextUnderlineStyle, 0);
        QVERIFY(format.hasProperty(QTextFormat::TextUnderlineStyle));
        format = underlined;
        changes.clear(format, QTextFormat::TextUnderlineStyle);
        QVERIFY(!format.hasProperty(QTextFormat::TextUnderlineStyle));
    }
};

ORV_TEST("charformatcache", TestCharFormatCache, registry::NoApplication)
#include "charformatcache.moc"
