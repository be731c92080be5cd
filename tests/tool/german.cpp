#include "toolpaths.h"
#include "tooltest.h"

/*! What users who prefer German are told, by the tool and by the library. */
class TestGerman : public ToolTest {
    Q_OBJECT

private slots:
    /*! None of the locales need be installed. */
    void helpInLocale_data()
    {
        Columns<QString, QString, bool>("variable", "value", "german");
        const auto row = [](const char* variable, const char* value, bool german) {
            QTest::newRow(value) << QString::fromLatin1(variable) << QString::fromLatin1(value) << german;
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

    void helpInLocale()
    {
        FETCH(QString, variable, QString, value, bool, german);
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"})
            m_environment.remove(QLatin1String(name));
        m_environment.insert(variable, value);
        const ToolRun result = run(words("--help"));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out.contains("Konvertiert und untersucht Dateien im Rich Text Format."), german);
        QCOMPARE(result.out.contains("Converts and examines Rich Text Format files."), !german);
    }

    /*! Also what Qt makes of its own is in German, and what is typed is not. */
    void headingsOfHelp()
    {
        setLocale("de_DE.UTF-8");
        const QByteArray help = run(words("--help")).out;
        QVERIFY2(help.startsWith("Aufruf: "), help.constData());
        for (const char* text : {"\nOptionen:\n", "\nArgumente:\n", " [Optionen] COMMAND IN [OUT]\n"})
            QVERIFY2(help.contains(text), text);
        for (const char* typed : {"--from <Format>", "--json ", "convert IN OUT", "rtf, html oder txt"})
            QVERIFY2(help.contains(typed), typed);
    }

    void errors_data()
    {
        Columns<QString, QByteArray, QByteArray, QByteArray>("arguments", "input", "german", "english");
        const auto row = [](const char* name, const char* arguments, const char* input, const char* german,
                            const char* english) {
            QTest::newRow(name) << QString::fromLatin1(arguments) << QByteArray(input) << QByteArray(german)
                                << QByteArray(english);
        };
        row("command line", "read x", "", "orvrtf: Unbekannter Befehl „read“; siehe orvrtf --help\n",
            "orvrtf: unknown command \"read\"; see orvrtf --help\n");
        row("option", "--rotate", "", "orvrtf: Unbekannte Option „rotate“; siehe orvrtf --help\n",
            "orvrtf: Unknown option 'rotate'; see orvrtf --help\n");
        row("check", "check -", "{\\rtf1 a",
            "orvrtf: Standardeingabe: „}“ ohne Gegenstück in der RTF-Datei\n",
            "orvrtf: standard input: Unmatched '}' in Rich Text file\n");
        row("convert", "convert --to txt - -", "{\\rtf1 a}}",
            "orvrtf: Standardeingabe: „{“ ohne Gegenstück in der RTF-Datei\n",
            "orvrtf: standard input: Unmatched '{' in Rich Text file\n");
    }

    void errors()
    {
        FETCH(QString, arguments, QByteArray, input, QByteArray, german, QByteArray, english);
        setLocale("de_DE.UTF-8");
        QCOMPARE(run(words(arguments), input).err, german);
        setLocale("C");
        QCOMPARE(run(words(arguments), input).err, english);
    }

    /*!
        Each file is converted by a program of its own, which is to speak as the first, also in a locale that
        is not installed.
    */
    void conversionOfManyFiles()
    {
        write("a.rtf", "{\\rtf1 a}}");
        setLocale("de_XX.UTF-8");
        QCOMPARE(run(words("convert a.rtf --to txt --output-dir out")).err,
                 "orvrtf: a.rtf: „{“ ohne Gegenstück in der RTF-Datei\n"
                 "orvrtf: 0 konvertiert, 1 mit Fehlern konvertiert\n"_b);
    }

    void infoForPeople()
    {
        setLocale("de_DE.UTF-8");
        const ToolRun result = run(words("info -"), "{\\rtf1 zwei Worte}");
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.out.startsWith("Absätze     1\nWörter      2\n"), result.out.constData());
        QVERIFY2(result.out.contains("\nAnmerkungen 0 (0 Fußnoten, 0 Kommentare)\n"), result.out.constData());
        QVERIFY2(result.out.endsWith("\nStatus      0\n"), result.out.constData());
    }

    /*! Programs find the same names in every language. */
    void infoForPrograms()
    {
        const QByteArray rtf = "{\\rtf1 zwei Worte\\par ";
        setLocale("C");
        const QJsonObject english = QJsonDocument::fromJson(run(words("info - --json"), rtf).out).object();
        setLocale("de_DE.UTF-8");
        const QJsonObject german = QJsonDocument::fromJson(run(words("info - --json"), rtf).out).object();
        QCOMPARE(german.keys(), english.keys());
        QCOMPARE(german.value("words"_s).toInt(), 2);
        QCOMPARE(german.value("message"_s).toString(), "„}“ ohne Gegenstück in der RTF-Datei"_s);
    }

    void withoutTranslations()
    {
        QVERIFY(QDir(m_dir->path()).mkdir("bin"_s));
        QVERIFY(QFile::copy(QString::fromUtf8(ORVRTF_TOOL), path("bin/orvrtf")));
        setLocale("de_DE.UTF-8");
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(path("bin/orvrtf"), {"read"_s});
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

private:
    void setLocale(const char* name) { m_environment.insert("LC_ALL"_s, QLatin1String(name)); }
};

ORV_TEST("german", TestGerman, QCoreApplication)
#include "german.moc"
