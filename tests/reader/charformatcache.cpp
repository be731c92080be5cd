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

    void equalChangesAreRecalled()
    {
        ORVRtfCharFormatCache changes;
        int made = 0;
        // How many changes so far were made, and not recalled; -1 when this one was neither.
        const auto set = [&](QTextCharFormat format, int property, int value) {
            changes.set(format, property, quint64(value), [&](QTextCharFormat& changed) {
                ++made;
                changed.setFontItalic(true);
            });
            return format.fontItalic() ? made : -1;
        };
        QTextCharFormat plain, large;
        large.setFontPointSize(30);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(set(plain, 1, 7), 1);
        QCOMPARE(set(large, 1, 7), 2);
        QCOMPARE(set(plain, 2, 7), 3);
        QCOMPARE(set(plain, 1, 8), 4);
        QCOMPARE(set(large, 1, 7), 4);
        // Only the last ones are remembered.
        const int remembered = 16;
        for (int value = 10; value <= 10 + remembered; ++value)
            QCOMPARE(set(plain, 3, value), value - 5);
        QCOMPARE(set(plain, 3, 10 + remembered), 5 + remembered);
        QCOMPARE(set(plain, 3, 10), 6 + remembered);
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
