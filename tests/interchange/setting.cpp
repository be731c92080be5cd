#include "ORV.h"
#include "ORVTextRtfStripper.h"
#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

// A Cyrillic letter in a font of its code page, and hidden text: "?b" and "\u0434" in the two forms.
const QByteArray rtf = "{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}}\\f0\\'e4{\\v b}}";
const QString stored = "?b"_s;
const QString imported = "\u0434"_s;

/*! The text of what \a reader reads from \a bytes. */
QString textBy(ORVTextRtfReader& reader, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    reader.setDevice(&buffer);
    const QSharedPointer<QTextDocument> document = newDocument();
    reader.read(document.data());
    reader.setDevice(nullptr);
    return textOf(*document);
}

} // namespace

/*! Where the form is selected, and that it lasts. */
class TestInterchangeSetting : public QObject {
    Q_OBJECT

private slots:
    void readerKeepsTheSetting()
    {
        ORVTextRtfReader reader;
        QVERIFY(!reader.interchange());
        QCOMPARE(textBy(reader, rtf), stored);
        reader.setInterchange(true);
        QVERIFY(reader.interchange());
        QCOMPARE(textBy(reader, rtf), imported);
        QCOMPARE(textBy(reader, rtf), imported);
        reader.setInterchange(false);
        QVERIFY(!reader.interchange());
        QCOMPARE(textBy(reader, rtf), stored);
    }

    void readerKeepsItsDevice()
    {
        QByteArray bytes = rtf;
        QBuffer buffer(&bytes);
        ORVTextRtfReader reader(&buffer);
        reader.setInterchange(true);
        QCOMPARE(reader.device(), &buffer);
        QTextDocument document;
        QVERIFY(reader.read(&document));
        QCOMPARE(textOf(document), imported);
    }

    /*! The page and the error are those of the last read, in this form as well. */
    void results()
    {
        ORVTextRtfReader reader;
        reader.setInterchange(true);
        QCOMPARE(textBy(reader, "{\\rtf1\\paperw9000 a"), "a"_s);
        QCOMPARE(reader.error(), 2);
        QCOMPARE(reader.errorString(), "Unmatched '}' in Rich Text file"_s);
        QCOMPARE(reader.paperWidth(), 9000);
        QVERIFY(!reader.read(nullptr));
    }

    /*! Nothing that one read leaves open is seen in the next. */
    ORV_ROWS(severalReads)
    {
        const Rows add([](const QByteArray& first) {
            ORVTextRtfReader reader;
            reader.setInterchange(true);
            textBy(reader, first);
            QCOMPARE(textBy(reader, "{\\rtf1 a\\'e4\\par b}"), "a\u00e4\nb"_s);
            QCOMPARE(reader.error(), 0);
        });
        for (const QByteArray content :
             {"\\v x", "\\deleted x", "\\trowd\\cellx9 x", "\\itap2 x\\nestcell", "{\\pict\\pngblip 00",
              "{\\field{\\*\\fldinst FORMCHECKBOX", "{\\fonttbl{\\f0\\fcharset204 A;}}\\f0 x",
              "{\\fonttbl{\\f0\\fcharset2 Symbol;}}\\f0 x", "\\ansicpg1251 x", "\\mac x",
              "{\\fonttbl{\\f0\\fcharset128 A;}}\\f0\\'93", "\\u65", "\\uc9\\u65", "{\\*\\unknown x",
              "{\\shp{\\*\\shpinst{\\sp{\\sn pib"})
            add(content, "{\\rtf1 " + QByteArray(content));
    }

    /*! A stripper copies what it reads, so it has one form only. */
    void stripperHasOneForm()
    {
        ORVTextRtfStripper stripper;
        stripper.setInterchange(true);
        QVERIFY(!stripper.interchange());
        QBuffer input, output;
        input.setData(rtf);
        input.open(QIODevice::ReadOnly);
        output.open(QIODevice::WriteOnly);
        stripper.setDevice(&input);
        stripper.setOutput(&output);
        stripper.process();
        QCOMPARE(output.data(), stripped(rtf));
    }

    ORV_ROWS(functions)
    {
        typedef std::function<bool(QTextDocument*)> Read;
        const Rows add([](const Read& read, const QString& text) {
            const QSharedPointer<QTextDocument> document = newDocument();
            QVERIFY(read(document.data()));
            QCOMPARE(textOf(*document), text);
        });
        const auto mime = std::make_shared<QMimeData>();
        mime->setData(ORV::rtfMimeTypes().first(), rtf);
        const auto file = std::make_shared<QTemporaryFile>();
        QVERIFY(file->open());
        file->write(rtf);
        file->close();
        add(
            "bytes of other programs",
            [](QTextDocument* d) { return ORVTextRtf::importRtfData(rtf, d, nullptr); }, imported);
        add(
            "stored bytes", [](QTextDocument* d) { return ORVTextRtf::fromRtfData(rtf, d, nullptr); },
            stored);
        add(
            "file of another program",
            [file](QTextDocument* d) { return ORVTextRtf::importRtfFile(file->fileName(), d, nullptr); },
            imported);
        add(
            "stored file",
            [file](QTextDocument* d) { return ORVTextRtf::fromRtfFile(file->fileName(), d, nullptr); },
            stored);
        add(
            "clipboard of another program",
            [mime](QTextDocument* d) { return ORVTextRtf::importRtfMimeData(mime.get(), d); }, imported);
        add(
            "stored form on the clipboard",
            [mime](QTextDocument* d) { return ORVTextRtf::fromRtfMimeData(mime.get(), d); }, stored);
    }
};

ORV_TEST("interchange_setting", TestInterchangeSetting, QGuiApplication)
#include "setting.moc"
