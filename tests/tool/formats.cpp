#include "tooltest.h"

using namespace conversiontest;

/*! What orvrtf makes of files of word processors. */
class TestToolFormats : public ToolTest {
    Q_OBJECT

private slots:
    void initTestCase() { m_documents.reset(new RealDocuments); }

    void init()
    {
        ToolTest::init();
        m_temporary.reset(new QTemporaryDir);
        m_environment.insert("TMPDIR"_s, m_temporary->path());
        // Qt itself takes a folder for its sockets, but none that others can enter.
        m_environment.insert("XDG_RUNTIME_DIR"_s, m_dir->path());
    }

    void cleanup()
    {
        const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        QCOMPARE(QDir(m_temporary->path()).entryList(all), QStringList());
    }

    ORV_ROWS(realDocumentToText)
    {
        const Rows add([this](const QString& suffix, const QString& options) {
            const ToolRun result =
                run(QStringList{"convert"_s, m_documents->path(suffix), "-"_s, "--to"_s, "txt"_s}
                    + words(options));
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.exitCode, 0);
            QVERIFY2(missingWord(QString::fromUtf8(result.out)).isEmpty(), result.out.constData());
        });
        add("doc", "doc", "");
        add("docx", "docx", "");
        add("odt", "odt", "");
        add("odt, auto", "odt", "--engine auto");
        add("docx, LibreOffice", "docx", "--engine libreoffice");
        add("doc, AbiWord", "doc", "--engine abiword");
        add("docx, pandoc", "docx", "--engine pandoc");
    }

    void rtfOpensInLibreOfficeWithSameWords()
    {
        QCOMPARE(run({"convert"_s, m_documents->path("docx"_s), path("letter.rtf")}), success());
        QVERIFY(read("letter.rtf").startsWith("{\\rtf1"));
        convertWithLibreOffice(path("letter.rtf"), "txt:Text (encoded):UTF8"_s, m_dir->path());
        const QString text = QString::fromUtf8(read("letter.txt"));
        QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
    }

    /*! With programs of the test only, which all do the same. */
    ORV_ROWS(engines)
    {
        const Rows add([this](const QString& programs, const QByteArray& commands,
                              const QByteArray& arguments, const Files& files, const ToolRun& expected,
                              const Files& outputs) {
            m_environment.insert("PATH"_s, QString());
            for (const QString& program : words(programs))
                fake(program, commands);
            verifyRun(arguments, files, "", expected, outputs);
        });
        const QByteArray says = "printf '{\\\\rtf1 by %s}' ${0##*/} >output/source.rtf";
        const auto option = [&](const char* option, const QByteArray& out) {
            add("option "_b + option, "soffice abiword pandoc", says,
                "convert in.docx - --to txt "_b + option, {{"in.docx", "content"}}, success(out), {});
        };
        option("", "by soffice\n");
        option("--engine auto", "by soffice\n");
        option("--engine libreoffice", "by soffice\n");
        option("--engine abiword", "by abiword\n");
        option("--engine=pandoc", "by pandoc\n");
        add("suffix in upper case", "abiword", says, "convert IN.DOC - --to txt", {{"IN.DOC", "content"}},
            success("by abiword\n"), {});
        const QByteArray hides = "printf '{\\\\rtf1 shown{\\\\v  hidden}}' >output/source.rtf";
        add("RTF of the program", "pandoc", hides, "convert in.odt - --to txt", {{"in.odt", "content"}},
            success("shown\n"), {});
        add("RTF of the program in the storage form", "pandoc", hides, "convert in.odt - --to txt --storage",
            {{"in.odt", "content"}}, success("shown hidden\n"), {});
        add("no program needed", "", "", "convert in.doc - --from rtf --to txt",
            {{"in.doc", "{\\rtf1 text}"}}, success("text\n"), {});

        add("no program", "", "", "convert in.docx out.rtf", {{"in.docx", "content"}},
            failure("orvrtf: Failed loading DOCX file 'in.docx' Error: No program for this conversion is "
                    "installed\n"
                    "orvrtf: Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword), pandoc "
                    "(pandoc)\n"),
            {});
        add("every message is shown", "pandoc", "echo 'first line' >&2; echo second >&2; exit 5",
            "convert in.odt out.rtf --engine pandoc", {{"in.odt", "content"}},
            failure("orvrtf: Failed loading ODT file 'in.odt' Error: The conversion program failed\n"
                    "orvrtf: pandoc ended with exit status 5 first line second\n"),
            {});
        add("missing file", "soffice", says, "convert missing.docx out.rtf", {},
            failure("orvrtf: Failed loading DOCX file 'missing.docx' Error: The file could not be read\n"
                    "orvrtf: Could not read 'missing.docx': No such file or directory\n"),
            {});
        add("folder", "soffice", says, "convert folder.odt out.rtf", {{"folder.odt/a", ""}},
            failure("orvrtf: Failed loading ODT file 'folder.odt' Error: The file could not be read\n"
                    "orvrtf: Could not read 'folder.odt': not a file\n"),
            {});
    }

    void formatsAndPageAreKept()
    {
        const QByteArray page = "\\paperw11906\\paperh16838\\margl1134\\margr1134";
        fake("soffice", "cp source.docx output/source.rtf");
        write("in.docx", "{\\rtf1" + page + " \\ri0 a {\\b strong}}");
        QCOMPARE(run("convert in.docx out.html"), success());
        QVERIFY(read("out.html").contains("<strong>strong</strong>"));
        QCOMPARE(run("convert in.docx out.rtf"), success());
        QVERIFY2(read("out.rtf").contains(page), read("out.rtf").constData());
        QVERIFY2(read("out.rtf").contains("\\ri0\\"), read("out.rtf").constData());
    }

    void anyFileName()
    {
        fake("soffice", "cp source.docx output/source.rtf");
        const QString name = "-o 'x'\n\xc3\xbc.docx"_s;
        write(name, "{\\rtf1 text}");
        QCOMPARE(run({"convert"_s, "--"_s, name, name + ".txt"_s}), success());
        QCOMPARE(read(name + ".txt"_s), "text\n"_b);
    }

    void failureKeepsOldOutput()
    {
        fake("soffice", "printf '{\\\\rtf1 half' >output/source.rtf");
        write("in.docx", "content");
        write("out.txt", "old");
        verifyFailure(run("convert in.docx out.txt"), "orvrtf: Failed loading converted RTF file '");
        QCOMPARE(read("out.txt"), "old"_b);
    }

    /*! LibreOffice gets the RTF that a conversion to RTF gives. */
    ORV_ROWS(odtIsMadeOfOurRtf)
    {
        const Rows add([this](const QString& in, const QByteArray& content) {
            fake("soffice", "cp source.rtf output/source.odt");
            write(in, content);
            QCOMPARE(run({"convert"_s, in, "out.rtf"_s}), success());
            QCOMPARE(run({"convert"_s, in, "out.odt"_s, "--engine"_s, "libreoffice"_s}), success());
            QVERIFY(read("out.odt").startsWith("{\\rtf1"));
            QCOMPARE(read("out.odt"), read("out.rtf"));
            QCOMPARE(run({"convert"_s, in, "-"_s, "--to"_s, "odt"_s, "--engine"_s, "libreoffice"_s}),
                     success(read("out.rtf")));
        });
        add("rtf", "in.rtf", "{\\rtf1\\paperw8400 a{\\footnote note}\\par\\li400 {\\b strong}}");
        add("html", "in.html", "<p style='margin-left:40px'>a <b>strong</b></p>");
        add("txt", "in.txt", "text");
    }

    void libreOfficeReadsAndWrites()
    {
        fake("soffice",
             "if [ -e source.docx ]; then cp source.docx output/source.rtf; else cp source.rtf "
             "output/source.odt; fi");
        write("in.docx", "{\\rtf1 text}");
        QCOMPARE(run("convert in.docx out.odt --engine libreoffice"), success());
        QVERIFY(read("out.odt").contains("text"));
    }

    /*! Several at a time do not meet. */
    void odtInABatch()
    {
        fake("soffice", "cp source.rtf output/source.odt");
        Files inputs;
        for (const char name : {'a', 'b', 'c', 'd'})
            inputs[name + ".rtf"_b] = "{\\rtf1 text "_b + name + '}';
        for (const auto& file : inputs)
            write(file.first.constData(), file.second);
        const ToolRun result =
            run("convert a.rtf b.rtf c.rtf d.rtf --output-dir out --to odt --engine libreoffice --jobs 2");
        QCOMPARE(result.exitCode, 0);
        for (const char name : {'a', 'b', 'c', 'd'})
            QVERIFY(read("out/"_s + QLatin1Char(name) + ".odt"_s).contains("text "_b + name));
    }

    ORV_ROWS(odtThatCannotBeMade)
    {
        const Rows add([this](const QString& programs, const QByteArray& commands, const QByteArray& reason) {
            m_environment.insert("PATH"_s, QString());
            for (const QString& program : words(programs))
                fake(program, commands);
            write("in.rtf", "{\\rtf1 text}");
            write("out.odt", "old");
            QCOMPARE(run("convert in.rtf out.odt --engine libreoffice"),
                     failure("orvrtf: cannot write out.odt: " + reason + '\n'));
            QCOMPARE(read("out.odt"), "old"_b);
        });
        add("missing", "abiword pandoc", "", "LibreOffice is not installed");
        add("failing", "soffice", "echo 'first line' >&2; echo second >&2; exit 5",
            "The conversion program failed: LibreOffice ended with exit status 5 first line second");
        add("nothing written", "soffice", "",
            "The converted file was not written: LibreOffice wrote nothing");
    }

    /*! The note, the page and the cells of a table, as real ones. */
    void odtByRealLibreOffice()
    {
        write(
            "in.rtf",
            "{\\rtf1\\paperw8000\\paperh10000 text{\\super\\chftn{\\footnote {\\super\\chftn} the note}}\\par"
            "\\trowd\\cellx2000\\cellx4000\\intbl one\\par two\\cell three\\cell\\row\\pard end}");
        QCOMPARE(run("convert in.rtf out.odt --engine libreoffice"), success());
        QVERIFY(read("out.odt").startsWith("PK"));
        convertWithLibreOffice(path("out.odt"), "fodt"_s, m_dir->path());
        const QByteArray xml = read("out.fodt");
        QCOMPARE(xml.count("<text:note "), 1);
        QVERIFY(xml.contains("the note"));
        QCOMPARE(xml.count("<table:table-cell "), 2);
        // 8000 twips; how LibreOffice rounds them, and the unit, depend on its version.
        const QRegularExpression width("fo:page-width=\"(5\\.5\\d*in|14\\.1\\d*cm)\""_s);
        QVERIFY(QString::fromUtf8(xml).contains(width));
    }

private:
    QScopedPointer<QTemporaryDir> m_temporary;
    QScopedPointer<RealDocuments> m_documents;
};

ORV_TEST_WITH("soffice abiword pandoc", "tool_formats", TestToolFormats, QCoreApplication)
#include "formats.moc"
