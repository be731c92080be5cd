#include "ORVRtfLanguages_p.h"
#include "testsupport.h"

using namespace rtftest;

class TestLanguages : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(numbers)
    {
        const Rows add([](int number, const QString& tag) { QCOMPARE(ORVRtfLanguages::tag(number), tag); });
        add("English", 1033, "en-US");
        add("German", 1031, "de-DE");
        add("Brazil", 1046, "pt-BR");
        add("script", 3098, "sr-Cyrl-RS");
        add("Uruguay", 14346, "es-UY");
        add("Jamaica", 8201, "en-JM");
        add("Northern Sotho", 1132, "nso-ZA");
        add("Divehi", 1125, "dv-MV");
        add("first of the table", 4, "zh-Hans");
        add("none", 1024, "");
        add("nothing", 0, "");
        add("unknown", 65535, "");
        add("below nothing", -1, "");
    }

    void everyTagHasANumber()
    {
        int count = 0;
        for (int number = 0; number <= 0xFFFF; ++number) {
            const QString tag = ORVRtfLanguages::tag(number);
            if (tag.isEmpty())
                continue;
            ++count;
            QCOMPARE(ORVRtfLanguages::tag(ORVRtfLanguages::number(tag)), tag);
        }
        QVERIFY(count > 200);
    }

    ORV_ROWS(tags)
    {
        const Rows add(
            [](const QString& tag, int number) { QCOMPARE(ORVRtfLanguages::number(tag), number); });
        add("English", "en-US", 1033);
        add("in small letters", "en-us", 1033);
        add("of two numbers", "es-ES", 3082);
        add("unknown", "x-quibble", ORVRtfLanguages::none);
        add("none", "", ORVRtfLanguages::none);
    }
};

ORV_TEST("languages", TestLanguages, QCoreApplication)
#include "languages.moc"
