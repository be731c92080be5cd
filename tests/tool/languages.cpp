#include "Translations.h"
#include "testsupport.h"

namespace {

const char* const variables[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};

} // namespace

/*! Which languages the tool's messages are wanted in. */
class TestLanguages : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        for (const char* variable : variables)
            qunsetenv(variable);
    }

    ORV_ROWS(wantedLanguages)
    {
        const Rows row([](const QByteArray& preferred, const QByteArray& all, const QByteArray& messages,
                          const QByteArray& lang, const QString& languages) {
            const QByteArray values[] = {preferred, all, messages, lang};
            for (int i = 0; i < 4; ++i) {
                if (!values[i].isEmpty())
                    qputenv(variables[i], values[i]);
            }
            QCOMPARE(Translations::wantedLanguages().join(QLatin1Char(' ')), languages);
        });
        row("nothing set", "", "", "", "", "");
        row("C", "", "", "", "C", "");
        row("C with an encoding", "", "", "", "C.UTF-8", "");
        row("POSIX", "", "POSIX", "", "de_DE.UTF-8", "");
        row("English", "", "", "", "en_GB.UTF-8", "");
        row("English without a country", "", "", "", "en", "");
        row("a language", "", "", "", "de", "de");
        row("with country and encoding", "", "", "", "de_AT.UTF-8", "de_AT");
        row("with a modifier", "", "", "", "de_DE@euro", "de_DE");
        row("that begins like English", "", "", "", "enm", "enm");
        row("LC_MESSAGES before LANG", "", "", "de_DE.UTF-8", "fr_FR.UTF-8", "de_DE");
        row("LC_ALL before all", "", "de_DE.UTF-8", "fr_FR.UTF-8", "it_IT.UTF-8", "de_DE");
        row("English before others", "", "", "en_US.UTF-8", "de_DE.UTF-8", "");
        row("LANGUAGE before the locale", "de", "", "", "fr_FR.UTF-8", "de");
        row("LANGUAGE in an English locale", "de", "en_US.UTF-8", "", "", "de");
        row("LANGUAGE in the C locale", "de", "C", "", "de_DE.UTF-8", "");
        row("LANGUAGE in the C locale with an encoding", "de", "C.UTF-8", "", "", "");
        row("several languages", "fr:de_CH:de", "", "", "de_DE.UTF-8", "fr de_CH de");
        row("English ends the list", "fr:en_GB:de", "", "", "de_DE.UTF-8", "fr");
        row("English is preferred", "en:de", "", "", "de_DE.UTF-8", "");
        row("empty names", ":de::", "", "", "fr_FR.UTF-8", "de");
    }
};

ORV_TEST("languages", TestLanguages, registry::NoApplication)
#include "languages.moc"
