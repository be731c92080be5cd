#include "conversionhelpers.h"
#include "tooltest.h"

using namespace conversiontest;

/*! What orvrtf makes of files of word processors. */
class TestToolFormats : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_documents.reset(new RealDocuments); }

    void init()
    {
        m_folders.reset(new Folders);
        QVERIFY(QDir().mkdir(path("bin")) && QDir().mkdir(path("runtime")));
        // Qt itself takes a folder for its sockets, but none that others can enter.
        QFile::setPermissions(path("runtime"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("XDG_RUNTIME_DIR"_s, path("runtime"));
    }

    void cleanup()
    {
        const QStringList leftovers = m_folders->leftovers();
        m_folders.reset();
        QCOMPARE(leftovers, QStringList());
    }

    ORV_ROWS(realDocumentToText)
    {
        const Rows add([this](const QString& suffix, const QString& engine) {
            QStringList arguments = {"convert"_s, m_documents->path(suffix), "-"_s, "--to"_s, "txt"_s};
            if (!engine.isEmpty())
                arguments << "--engine"_s << engine;
            const ToolRun result = run(arguments);
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.exitCode, 0);
            QVERIFY2(missingWord(QString::fromUtf8(result.out)).isEmpty(), result.out.constData());
        });
        add("doc", "doc", QString());
        add("docx", "docx", QString());
        add("odt", "odt", QString());
        add("odt, auto", "odt", "auto");
        add("docx, LibreOffice", "docx", "libreoffice");
        add("doc, AbiWord", "doc", "abiword");
        add("docx, pandoc", "docx", "pandoc");
    }

    void rtfOpensInLibreOfficeWithSameWords()
    {
        QCOMPARE(run({"convert"_s, m_documents->path("docx"_s), path("letter.rtf")}), success());
        QVERIFY(readFile(path("letter.rtf")).startsWith("{\\rtf1"));
        QVERIFY(QDir().mkdir(path("libreoffice")));
        const Environment temporary("TMPDIR", QFile::encodeName(path("libreoffice")));
        convertWithLibreOffice(path("letter.rtf"), "txt:Text (encoded):UTF8"_s, path("runtime"));
        const QString text = QString::fromUtf8(readFile(path("runtime/letter.txt")));
        QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
    }

    void htmlFromDocument()
    {
        fake("soffice"_s, "printf '{\\\\rtf1 a {\\\\b strong}}' >output/source.rtf");
        writeFile(path("in.odt"), "content");
        QCOMPARE(run(words("convert in.odt out.html")), success());
        QVERIFY(readFile(path("out.html")).contains(">strong</span>"));
    }

    ORV_ROWS(engineOption)
    {
        const Rows add([this](const QString& arguments, const QByteArray& out) {
            for (const QString& name : words("soffice abiword pandoc"))
                fake(name, "printf '{\\\\rtf1 by " + name.toUtf8() + "}' >output/source.rtf");
            writeFile(path("in.docx"), "content");
            QCOMPARE(run(("convert in.docx - --to txt"_s + arguments).split(QLatin1Char(' '))), success(out));
        });
        add("none", "", "by soffice\n");
        add("auto", " --engine auto", "by soffice\n");
        add("libreoffice", " --engine libreoffice", "by soffice\n");
        add("abiword", " --engine abiword", "by abiword\n");
        add("pandoc", " --engine=pandoc", "by pandoc\n");
    }

    void suffixInUpperCase()
    {
        fake("abiword"_s, "printf '{\\\\rtf1 text}' >output/source.rtf");
        writeFile(path("IN.DOC"), "content");
        QCOMPARE(run(words("convert IN.DOC - --to txt")), success("text\n"));
    }

    void anyFileName()
    {
        fake("soffice"_s, "cp source.docx output/source.rtf");
        const QString name = "-o 'x'\n\xc3\xbc.docx"_s;
        writeFile(m_folders->path(name), "{\\rtf1 text}");
        QCOMPARE(run({"convert"_s, "--"_s, name, name + ".txt"_s}), success());
        QCOMPARE(readFile(m_folders->path(name) + ".txt"_s), "text\n"_b);
    }

    void noProgramInstalled()
    {
        m_environment.insert("PATH"_s, QString());
        writeFile(path("in.docx"), "content");
        QCOMPARE(
            run(words("convert in.docx out.rtf")),
            failure("orvrtf: Failed loading DOCX file 'in.docx' Error: No program for this conversion is "
                    "installed\n"
                    "orvrtf: Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword), pandoc "
                    "(pandoc)\n"));
        QVERIFY(!QFile::exists(path("out.rtf")));
    }

    void everyMessageIsShown()
    {
        fake("pandoc"_s, "echo 'first line' >&2; echo second >&2; exit 5");
        writeFile(path("in.odt"), "content");
        QCOMPARE(run(words("convert in.odt out.rtf --engine pandoc")),
                 failure("orvrtf: Failed loading ODT file 'in.odt' Error: The conversion program failed\n"
                         "orvrtf: pandoc ended with exit status 5 first line second\n"));
    }

    ORV_ROWS(missingInput)
    {
        const Rows add([this](const QString& name, const QByteArray& error) {
            QVERIFY(QDir().mkdir(path("folder.odt")));
            QCOMPARE(run({"convert"_s, name, "out.rtf"_s}), failure(error));
            QVERIFY(!QFile::exists(path("out.rtf")));
        });
        add("docx", "missing.docx",
            "orvrtf: Failed loading DOCX file 'missing.docx' Error: The file "
            "could not be read\n"
            "orvrtf: Could not read 'missing.docx': No such file or directory\n");
        add("folder", "folder.odt",
            "orvrtf: Failed loading ODT file 'folder.odt' Error: The file could "
            "not be read\n"
            "orvrtf: Could not read 'folder.odt': not a file\n");
        add("txt", "missing.txt", "orvrtf: cannot read missing.txt: No such file or directory\n");
        add("html", "missing.html", "orvrtf: cannot read missing.html: No such file or directory\n");
    }

    void failureKeepsOldOutput()
    {
        fake("soffice"_s, "printf '{\\\\rtf1 half' >output/source.rtf");
        writeFile(path("in.docx"), "content");
        writeFile(path("out.txt"), "old");
        const ToolRun result = run(words("convert in.docx out.txt"));
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.startsWith("orvrtf: Failed loading converted RTF file '"),
                 result.err.constData());
        QCOMPARE(result.err.count('\n'), 1);
        QCOMPARE(readFile(path("out.txt")), "old"_b);
    }

    void fromOptionNeedsNoProgram()
    {
        m_environment.insert("PATH"_s, QString());
        writeFile(path("in.doc"), "{\\rtf1 text}");
        QCOMPARE(run(words("convert in.doc - --from rtf --to txt")), success("text\n"));
    }

    ORV_ROWS(usageErrors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& error) {
            writeFile(path("in.docx"), "content");
            QCOMPARE(run(words(arguments)), refusal(error));
        });
        const QByteArray inputOnly = "--engine goes with .doc, .docx and .odt input only";
        add("unknown engine", "convert in.docx out.rtf --engine word",
            "unknown engine \"word\", known are auto, libreoffice, abiword and pandoc");
        add("engine for RTF", "convert in.rtf out.html --engine pandoc", inputOnly);
        add("engine for HTML", "convert in.html out.rtf --engine pandoc", inputOnly);
        add("engine for standard input", "convert - out.rtf --engine pandoc", inputOnly);
        add("engine with --from", "convert in.docx out.html --from rtf --engine pandoc", inputOnly);
        add("engine for check", "check in.docx --engine pandoc", "--engine does not go with check");
        add("docx output", "convert in.docx out.docx",
            "cannot tell the format of \"out.docx\" by its suffix, known "
            "are .rtf, .html, .htm, .txt, .odt, .pdf and .png");
        add("docx for --from", "convert in out.rtf --from docx",
            "unknown input format \"docx\", known are rtf, html and txt");
    }

    void helpNamesEngines()
    {
        const ToolRun result = run(words("--help"));
        QCOMPARE(result.exitCode, 0);
        for (const char* const topic : {"--engine", ".docx", ".odt", "libreoffice", "abiword", "pandoc"})
            QVERIFY2(result.out.contains(topic), topic);
    }

private:
    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }

    ToolRun run(const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_folders->path(QString()));
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(QString::fromUtf8(ORVRTF_TOOL), arguments);
        return finished(process);
    }

    /*! Lets the tool find programs in a folder of the test only, and makes \a name there. */
    void fake(const QString& name, const QByteArray& commands)
    {
        m_environment.insert("PATH"_s, path("bin"));
        writeScript(path("bin/") + name, "PATH=/usr/bin:/bin\n" + commands);
    }

    QScopedPointer<Folders> m_folders;
    QScopedPointer<RealDocuments> m_documents;
    QProcessEnvironment m_environment;
};

ORV_TEST_WITH("soffice abiword pandoc", "tool_formats", TestToolFormats, QCoreApplication)
#include "formats.moc"
