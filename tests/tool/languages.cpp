#include "Translations.h"
#include "tooltest.h"

/*! Which languages users want, and what those are told who prefer German, by the tool and by the library. */
class TestLanguages : public ToolTest {
    Q_OBJECT

private slots:
    /*! None of the locales need be installed. */
    ORV_ROWS(helpInLocale)
    {
        const Rows add([this](const QString& variable, const QString& value, bool german) {
            m_environment.remove("LC_ALL"_s);
            m_environment.insert(variable, value);
            const ToolRun result = run("--help");
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.out.contains("Konvertiert und untersucht Dateien im Rich Text Format."), german);
            QCOMPARE(result.out.contains("Converts and examines Rich Text Format files."), !german);
        });
        const auto row = [&](const char* variable, const char* value, bool german) {
            add(value, variable, value, german);
        };
        row("LC_ALL", "de_DE.UTF-8", true);
        row("LC_MESSAGES", "de_AT.UTF-8", true);
        row("LANG", "de", true);
        row("LANG", "de_CH@euro", true);
        row("LC_ALL", "C", false);
        row("LC_ALL", "C.UTF-8", false);
        row("LANG", "en_GB.UTF-8", false);
        row("LC_ALL", "xx_XX.UTF-8", false);
    }

    /*! Also what Qt makes of its own is in German, and what is typed is not. */
    ORV_ROWS(outputHas)
    {
        const Rows add([this](const QByteArray& arguments, const QByteArray& start,
                              const QStringList& texts) {
            setLocale("de_DE.UTF-8");
            const ToolRun result = run(arguments.constData(), "{\\rtf1{\\info{\\title Titel}} zwei Worte}");
            QCOMPARE(result.exitCode, 0);
            QVERIFY2(result.out.startsWith(start), result.out.constData());
            for (const QString& text : texts)
                QVERIFY2(result.out.contains(text.toUtf8()), qPrintable(text));
        });
        add("help", "--help", "Aufruf: ",
            {"\nOptionen:\n"_s, "\nArgumente:\n"_s, " [Optionen] COMMAND IN [OUT]\n"_s, "--from <Format>"_s,
             "--json "_s, "convert IN OUT"_s, "rtf, html oder txt"_s});
        add("info", "info -", "Titel       Titel\nAbsätze     1\nWörter      2\n",
            {"\nAnmerkungen 0 (0 Fußnoten, 0 Endnoten, 0 Kommentare)\n"_s, "\nStatus      0\n"_s});
    }

    /*! Also where each file is converted by a program of its own, and in a locale that is not installed. */
    ORV_ROWS(errors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& input, const QByteArray& german,
                              const QByteArray& english) {
            write("a.rtf", input);
            for (const char* locale : {"de_DE.UTF-8", "de_XX.UTF-8"}) {
                setLocale(locale);
                QCOMPARE(run(words(arguments), input).err, german);
            }
            setLocale("C");
            QCOMPARE(run(words(arguments), input).err, english);
        });
        add("command line", "read x", "", "orvrtf: Unbekannter Befehl „read“; siehe orvrtf --help\n",
            "orvrtf: unknown command \"read\"; see orvrtf --help\n");
        add("option", "--rotate", "", "orvrtf: Unbekannte Option „rotate“; siehe orvrtf --help\n",
            "orvrtf: Unknown option 'rotate'; see orvrtf --help\n");
        add("check", "check -", "{\\rtf1 a",
            "orvrtf: Standardeingabe: „}“ ohne Gegenstück in der RTF-Datei\n",
            "orvrtf: standard input: Unmatched '}' in Rich Text file\n");
        add("convert", "convert --to txt - -", "{\\rtf1 a}}",
            "orvrtf: Standardeingabe: „{“ ohne Gegenstück in der RTF-Datei\n",
            "orvrtf: standard input: Unmatched '{' in Rich Text file\n");
        add("many files", "convert a.rtf --to txt --output-dir out", "{\\rtf1 a}}",
            "orvrtf: a.rtf: „{“ ohne Gegenstück in der RTF-Datei\n"
            "orvrtf: 0 konvertiert, 1 mit Fehlern konvertiert\n",
            "orvrtf: a.rtf: Unmatched '{' in Rich Text file\norvrtf: 0 converted, 1 converted with errors\n");
    }

    /*! Programs find the same names in every language. */
    void infoForPrograms()
    {
        const QByteArray rtf = "{\\rtf1 zwei Worte\\par ";
        setLocale("C");
        const QJsonObject english = QJsonDocument::fromJson(run("info - --json", rtf).out).object();
        setLocale("de_DE.UTF-8");
        const QJsonObject german = QJsonDocument::fromJson(run("info - --json", rtf).out).object();
        QCOMPARE(german.keys(), english.keys());
        QCOMPARE(german.value("words"_s).toInt(), 2);
        QCOMPARE(german.value("message"_s).toString(), "„}“ ohne Gegenstück in der RTF-Datei"_s);
    }

    void withoutTranslations()
    {
        makeFolder("bin");
        QVERIFY(QFile::copy(QString::fromUtf8(ORVRTF_TOOL), path("bin/orvrtf")));
        setLocale("de_DE.UTF-8");
        QProcess process;
        start(process, {"read"_s}, path("bin/orvrtf"));
        QCOMPARE(finish(process), refusal("unknown command \"read\""));
    }

    ORV_ROWS(messagesOfReader)
    {
        const Rows add([](QByteArray rtf, const QString& german) {
            QTranslator translator;
            QVERIFY(translator.load("orvrtf_de"_s, QLatin1String(TRANSLATIONS_FOLDER)));
            QVERIFY(QCoreApplication::installTranslator(&translator));
            QBuffer buffer(&rtf);
            QVERIFY(buffer.open(QIODevice::ReadOnly));
            QTextDocument document;
            ORVTextRtfReader reader(&buffer);
            reader.read(&document);
            QCOMPARE(reader.errorString(), german);
            QVERIFY(QCoreApplication::removeTranslator(&translator));
        });
        add("sound", "{\\rtf1 a}", QString());
        add("brace too many", "{\\rtf1 a}}", "„{“ ohne Gegenstück in der RTF-Datei");
        add("brace missing", "{\\rtf1 a", "„}“ ohne Gegenstück in der RTF-Datei");
        add("no number of bytes", "{\\rtf1 {\\pict\\bin99 a}", "Ungültiger Parameter eines Steuerworts");
    }

    ORV_ROWS(wantedLanguages)
    {
        const Rows row([](const QByteArray& preferred, const QByteArray& all, const QByteArray& messages,
                          const QByteArray& lang, const QString& languages) {
            const std::pair<const char*, QByteArray> variables[] = {
                {"LANGUAGE", preferred}, {"LC_ALL", all}, {"LC_MESSAGES", messages}, {"LANG", lang}};
            for (const auto& variable : variables) {
                qunsetenv(variable.first);
                if (!variable.second.isEmpty())
                    qputenv(variable.first, variable.second);
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

private:
    void setLocale(const char* name) { m_environment.insert("LC_ALL"_s, QLatin1String(name)); }
};

ORV_TEST("languages", TestLanguages, QCoreApplication)
#include "languages.moc"
