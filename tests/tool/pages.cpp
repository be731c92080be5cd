#include "testpaths.h"
#include "tooltest.h"

namespace {

QString sample(const QString& name)
{
    return QString::fromUtf8(TEST_DATA_DIR) + QLatin1Char('/') + name + ".rtf"_s;
}

/*!
    The words of \a text, in whatever order columns have put them; small capitals are drawn as capitals. Without
    the marks of notes, which stand in brackets or directly behind the word in front.
*/
QStringList sortedWords(QString text)
{
    QStringList words =
        text.remove(QRegularExpression("\\[c?\\d+\\]"_s))
            .normalized(QString::NormalizationForm_KC)
            .toLower()
            .split(QRegularExpression("\\W+"_s, QRegularExpression::UseUnicodePropertiesOption));
    words.replaceInStrings(QRegularExpression("(c?\\d+)+$"_s), QString());
    words.removeAll(QString());
    words.sort();
    return words;
}

QString missingWords(const QString& text, const QString& found)
{
    QStringList missing = sortedWords(text);
    const QStringList words = sortedWords(found);
    for (const QString& word : words)
        missing.removeOne(word);
    return missing.join(QLatin1Char(' '));
}

/*! The first column of pixels in \a image that is not white; -1 when all is. */
int leftmostInk(const QImage& image)
{
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (qGray(image.pixel(x, y)) < 128)
                return x;
        }
    }
    return -1;
}

} // namespace

/*! What the tool makes for the eye: PDF, pictures of pages and ODT, as other programs see it. */
class TestToolPages : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(samples)
    {
        const Rows add([this](const QString& pageSize, const QSize& pixels) {
            const QString in = sample(QString::fromLatin1(QTest::currentDataTag()));
            convert({in, path("out.pdf")});
            convert({in, path("out.png")});
            convert({in, path("out.txt")});

            const QString info = QString::fromLatin1(program("pdfinfo", {path("out.pdf")}));
            QVERIFY2(
                info.contains(QRegularExpression("Page size:\\s+"_s + QRegularExpression::escape(pageSize))),
                qPrintable(info));
            const int pages = QRegularExpression("Pages:\\s+(\\d+)"_s).match(info).captured(1).toInt();
            QVERIFY(pages >= 1);
            QCOMPARE(QDir(m_dir->path()).entryList({"out*.png"_s}).size(), pages);
            QCOMPARE(missingWords(QString::fromUtf8(read("out.txt")), pdfText(path("out.pdf"))), QString());
            for (int page = 1; page <= pages; ++page) {
                const QImage image(page == 1 ? path("out.png") : path("out-%1.png"_s.arg(page)));
                QCOMPARE(image.size(), pixels);
                QVERIFY(leftmostInk(image) > 0);
            }
        });
        const QString letter = "612 x 792 pts (letter)"_s;
        const QString a4 = "595 x 842 pts (A4)"_s;
        for (const char* name :
             {"libreoffice-essay", "libreoffice-links", "libreoffice-notes", "pandoc-lists"})
            add(name, letter, QSize(816, 1056));
        for (const char* name : {"libreoffice-grids", "libreoffice-outline", "libreoffice-pictures"})
            add(name, a4, QSize(794, 1123));
        add("abiword-grids", a4, QSize(794, 1122));
    }

    // The page, all the words, and as many pictures as there are pages.
    ORV_ROWS(odtSamples)
    {
        const Rows add([this](const QString& name) {
            const QString in = sample(name);
            convert({in, path("out.odt")});
            convert({in, path("expected.txt")});
            conversiontest::convertWithLibreOffice(path("out.odt"), "txt:Text (encoded):UTF8"_s,
                                                   m_dir->path());
            QCOMPARE(
                missingWords(QString::fromUtf8(read("expected.txt")), QString::fromUtf8(read("out.txt"))),
                QString());
        });
        for (const char* name : {"abiword-grids", "libreoffice-essay", "libreoffice-nested",
                                 "libreoffice-outline", "pandoc-lists"})
            add(name, QString::fromLatin1(name));
    }

    ORV_ROWS(pdf)
    {
        const Rows add([this](const QString& name, const QByteArray& content, const QByteArray& pageSize,
                              const QString& text) {
            write(name, content);
            convert({name, "out.pdf"_s});
            const QByteArray info = program("pdfinfo", {path("out.pdf")});
            QVERIFY2(info.contains(pageSize), info.constData());
            QCOMPARE(pdfText(path("out.pdf")).simplified(), text);
        });
        add("html", "in.html", "text", "595 x 842 pts (A4)", "text");
        add("txt", "in.txt", "text", "595 x 842 pts (A4)", "text");
        const auto rtf = [&](const QByteArray& name, const QByteArray& body, const QString& text) {
            add(name, "in.rtf", "{\\rtf1" + body + '}', "612 x 792 pts (letter)", text);
        };
        // What RTF has where it says nothing.
        rtf("rtf", " text", "text"_s);
        rtf("unusable page", "\\paperw0\\paperh-5\\margl99999999\\margr-7 i", "i"_s);
        rtf("levels of lists",
            "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}\\fi-360\\li720}"
            "{\\listlevel\\levelnfc0{\\leveltext\\'03\\'00.\\'01;}\\fi-360\\li1440}\\listid1}}"
            "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\pard\\ls1\\li720\\fi-360 a\\par b\\par"
            "\\ilvl1\\li1200\\fi-480 c\\par d\\par\\ilvl0\\li720\\fi-360 e",
            "1. a 2. b 2.1 c 2.2 d 3. e"_s);
        // Lengths of miles, with which the text is seen all the same
        for (const char* length :
             {"\\sb100000000", "\\sb2000000000", "\\sa300000000", "\\sl300000000", "\\sl-300000000",
              "\\sl2000000000\\slmult1", "\\fi-2000000000", "\\li300000000", "\\ri-300000000"})
            rtf(length + 1, length + " i\\par i\\par i"_b, "i i i"_s);
        rtf("trgaph", "\\trowd\\trgaph300000000\\cellx3000\\intbl i\\par i\\par i\\cell\\row", "i i i"_s);
    }

    void fontsAreEmbedded()
    {
        convert({sample("libreoffice-essay"_s), path("out.pdf")});
        const QList<QByteArray> lines = program("pdffonts", {path("out.pdf")}).split('\n');
        QVERIFY(lines.size() > 3);
        for (int i = 2; i < lines.size() - 1; ++i)
            QVERIFY2(
                QString::fromLatin1(lines.at(i)).contains(QRegularExpression(" yes +(yes|no) +(yes|no) "_s)),
                lines.at(i).constData());
    }

    void pageBreaksMakePictures()
    {
        write("in.rtf", "{\\rtf1 one\\page two\\par\\pagebb three}");
        convert(words("in.rtf out.PNG --to png"));
        QCOMPARE(files(), words("in.rtf out-2.PNG out-3.PNG out.PNG"));
    }

    // The left margin is 100 pixels, the indent 48 more.
    void indentsAreSeen()
    {
        for (const int indent : {0, 720}) {
            write("in.rtf", "{\\rtf1\\margl1500\\pard\\li" + QByteArray::number(indent) + "\\fs40 HHH}");
            convert(words("in.rtf out.png"));
            const int ink = leftmostInk(QImage(path("out.png")));
            const int expected = 100 + indent / 15;
            QVERIFY2(ink >= expected && ink <= expected + 3, QByteArray::number(ink).constData());
        }
    }

    // A document of a stranger must not show, and so give away, what lies on the disk.
    ORV_ROWS(noPictureFromDisk)
    {
        const Rows add([this](const QString& format) {
            QImage picture(400, 400, QImage::Format_RGB32);
            picture.fill(Qt::black);
            QVERIFY(picture.save(path("black.png")));
            write("with.html", "<img src=\"" + path("black.png").toUtf8() + "\"><img src=\"black.png\">");
            write("without.html", "<img src=\"none.png\"><img src=\"none.png\">");
            convert({"with.html"_s, "with."_s + format});
            convert({"without.html"_s, "without."_s + format});
            if (format == "png"_s)
                QCOMPARE(leftmostInk(QImage(path("with.png"))), -1);
            // Names and dates differ a little.
            const auto sizeOf = [&](const QString& name) { return read(name + format).size(); };
            QVERIFY(qAbs(sizeOf("with."_s) - sizeOf("without."_s)) < 300);
        });
        add("png", "png");
        add("pdf", "pdf");
        add("odt", "odt");
    }

    ORV_ROWS(standardOutput)
    {
        const Rows add([this](const QString& format, const QByteArray& signature) {
            const ToolRun result = run(words("convert - - --to " + format), "{\\rtf1 text}");
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            QVERIFY(result.out.startsWith(signature));
        });
        add("pdf", "pdf", "%PDF-");
        add("odt", "odt", "PK");
    }

    void unwritablePictureIsNamed()
    {
        makeFolder("out-2.png");
        write("in.rtf", "{\\rtf1 one\\page two\\page three}");
        verifyFailure(run("convert in.rtf out.png"), "orvrtf: cannot write out-2.png: ");
        QCOMPARE(files(), words("in.rtf out-2.png"));
    }

    ORV_ROWS(pictureOverTheInputIsRefused)
    {
        const Rows add([this](const QString& command) {
            const QByteArray rtf = "{\\rtf1 one\\page two}";
            write("in-2.png", rtf);
            QVERIFY(QFile::link(path("in-2.png"), path("link.rtf")));
            QCOMPARE(run(words(command)), failure("orvrtf: cannot write in-2.png: it is the input\n"));
            QCOMPARE(read("in-2.png"), rtf);
            QVERIFY(!QFile::exists(path("in.png")));
        });
        add("same name", "convert --from rtf in-2.png in.png");
        add("another path", "convert --from rtf ./in-2.png in.png");
        add("link", "convert link.rtf in.png");
    }

    void picturesOfOtherPagesStay()
    {
        write("out-2.png", "second");
        write("out-3.png", "third");
        write("in.rtf", "{\\rtf1 one\\page two}");
        convert(words("in.rtf out.png"));
        QVERIFY(!QImage(path("out-2.png")).isNull());
        QCOMPARE(read("out-3.png"), "third"_b);
    }

    // So many pages take long enough for the signal to come in between.
    void interruptedPicturesAreRemoved()
    {
        write("in.rtf", "{\\rtf1 " + "page\\page "_b.repeated(2000) + '}');
        QProcess process;
        start(process, words("convert in.rtf out.png"));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path("out-2.png")), 60000);
        process.terminate();
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(files(), words("in.rtf"));
    }

private:
    QByteArray program(const char* name, const QStringList& arguments) const
    {
        QProcess process;
        process.start(QString::fromLatin1(name), arguments);
        if (!process.waitForStarted() || !process.waitForFinished(120000) || process.exitCode() != 0)
            qFatal("%s fails: %s", name, process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    QString pdfText(const QString& path) const
    {
        return QString::fromUtf8(program("pdftotext", {path, "-"_s}));
    }

    void convert(const QStringList& arguments) const
    {
        const ToolRun result = run(QStringList("convert"_s) + arguments);
        if (result.exitCode != 0 || !result.err.isEmpty())
            qFatal("convert ends with %d: %s", result.exitCode, result.err.constData());
    }
};

ORV_TEST_WITH("pdffonts pdfinfo pdftotext", "tool_pages", TestToolPages, QCoreApplication)
#include "pages.moc"
