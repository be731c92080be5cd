#include "testsupport.h"

using namespace rtftest;

namespace {

const int unmatchedOpeningBrace = 2;
const int noDocument = 6;
const int couldNotOpenDevice = 10;

/*! An output that refuses everything. */
class FullDevice : public QIODevice {
protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }
};

/*! A stripper between two open buffers: one with the RTF, and one that what is written is appended to. */
struct Copying {
    explicit Copying(const QByteArray& rtf, const QByteArray& before = QByteArray())
    {
        input.setData(rtf);
        output.setData(before);
        input.open(QIODevice::ReadOnly);
        output.open(QIODevice::Append);
        stripper.setDevice(&input);
        stripper.setOutput(&output);
    }

    QBuffer input;
    QBuffer output;
    ORVTextRtfStripper stripper;
};

} // namespace

/*! RTF copied in a lighter form. */
class TestStripper : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(copies)
    {
        const Rows add(
            [](const QByteArray& rtf, const QByteArray& expected) { QCOMPARE(stripped(rtf), expected); });
        add("nothing", QByteArray(), QByteArray());
        add("text outside groups", "plain text", "plain text");

        // Control words
        add("leading zeros", "{\\rtf1\\ansi\\fs024 Hello}", "\n{\\rtf1\\ansi\\fs24 Hello}\n");
        add("negative number", "\\fi-0360 x", "\\fi-360 x");
        add("plus sign is text", "\\fs+3", "\\fs +3");
        add("hyphen without number", "\\b-x", "\\b x");
        add("zero", "\\b0 x", "\\b0 x");
        add("no delimiter needed between words", "\\b \\i x", "\\b\\i x");
        add("second blank is text", "\\b  x", "\\b  x");
        add("no delimiter before a brace", "\\b {x}", "\\b\n{x}\n");
        add("no delimiter before a closing brace", "{\\b }x", "\n{\\b}\nx");
        add("line end is the delimiter", "\\b\nx", "\\b\nx");
        add("carriage return is no delimiter", "\\b\rx", "\\b x");
        add("nothing owed at the end", "x\\b ", "x\\b");
        add("unknown word", "a\\foo42 b", "ab");
        add("unknown word after a known one", "\\b\\foo42 x", "\\b x");
        add("unknown symbol", "a\\!b", "ab");
        add("case counts", "\\B x", "x");

        // Groups
        add("groups on lines of their own", "a{b}c{{d}}", "a\n{b}\nc\n{\n{d}\n}\n");
        add("unmatched braces", "}{", "}\n\n{");
        add("line ends are copied", "{a\r\n\r\nb}\n", "\n{a\n\nb}\n\n");

        // Symbols
        add("escaped brace", "\\{a\\}", "\\{ a\\}");
        add("no-break space", "a\\~b", "a\\~ b");
        add("byte", "caf\\'e9s", "caf\\'e9s");
        add("byte keeps its case", "\\'E9", "\\'E9");
        add("bytes that are no digits", "\\'{}x", "\\'{}x");
        add("byte does not pay what is owed", "\\b\\'e9x", "\\b\\'e9 x");
        add("byte with one digit", "\\'e", "\\'e");
        add("byte without digits", "x\\'", "x\\'");
        add("Unicode character", "\\u-3913?x", "\\u-3913 ?x");
        add("unknown destination", "{\\*\\foo text}", "\n{\\* text}\n");
        add("known destination", "{\\*\\bkmkstart a}", "\n{\\*\\bkmkstart a}\n");

        // Tables
        add("cell", "a\\cell b", "a\\cell\nb");
        add("row", "\\row b", "\\row\nb");
        add("nested cell", "\\nestcell b", "\\nestcell\nb");
        add("nested row", "\\nestrow b", "\\nestrow\nb");
        add("cell boundary", "\\cellx720 b", "\\cellx720\nb");
        add("cell with a number", "\\cell1 b", "\\cell1\nb");

        // Skipped groups
        add("picture", "{\\pict\\pngblip 89504e47}", "\n{\\pict}\n");
        add("number of a picture", "{\\pict01 89}", "\n{\\pict1}\n");
        add("list number", "{\\listtext 1.\\tab}x", "\n{\\listtext}\nx");
        add("old list number", "{\\pntext\\'b7}x", "\n{\\pntext}\nx");
        add("groups within a picture", "{\\pict{\\*\\blipuid 00}{a{b}}\\b\n89}tail", "\n{\\pict}\ntail");
        add("words before a picture", "{\\b\\pict 89}x", "\n{\\b\\pict}\nx");
        add("picture outside groups", "\\pict 89}x", "\\pict}\nx");
        add("picture without end", "{\\pict 89", "\n{\\pict");
        add("escaped brace within a picture", "{\\pict\\}89}x", "\n{\\pict}\nx");

        // Binary data
        add("binary data", "\\bin3 }{\\x", "\\bin3}{\\x");
        add("binary line ends", "\\bin2 \r\nx", "\\bin2\r\nx");
        add("no binary data", "\\bin0 {x}", "\\bin0\n{x}\n");
        add("negative count", "\\bin-5 {x}", "\\bin-5\n{x}\n");
        add("one byte too few", "\\bin3 {x}", "\\bin3\n{x}\n");
        add("largest count", "\\bin2147483647 {x}", "\\bin2147483647\n{x}\n");

        // Damage
        add("backslash at the end", "x\\", "x");
        add("word at the end", "x\\b", "xb");
        add("longest word", "a\\" + QByteArray(62, 'q') + " b", "ab");
        add("word too long", "a\\" + QByteArray(63, 'q') + " b", "a" + QByteArray(63, 'q') + " b");
    }

    void everyByteOutsideWordsIsCopied()
    {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte) {
            if (byte != '\\' && byte != '{' && byte != '}' && byte != '\r')
                bytes += char(byte);
        }
        QCOMPARE(stripped(bytes), bytes);
    }

    ORV_ROWS(wordsAcrossTheBuffer)
    {
        const Rows add([](int length) {
            const QByteArray text(length, 'a');
            QCOMPARE(stripped(text + "\\fs024 " + text + "\\'e9" + text),
                     text + "\\fs24 " + text + "\\'e9" + text);
        });
        for (int length = 1000; length < 1060; ++length)
            add(QByteArray::number(length), length);
    }

    void binaryDataBeyondTheLookAheadIsLeft()
    {
        // The word's look-ahead has fetched the second line, that for the data fetches the third, and no
        // more: so the data are taken for text, and their brace counts.
        QCOMPARE(stripped("\\bin8 a\nb\nc\n{cd"), "\\bin8a\nb\nc\n\n{cd"_b);
        QCOMPARE(stripped("\\bin6 a\nb\n{cd"), "\\bin6a\nb\n{cd"_b);
    }

    void deepGroups()
    {
        const int depth = 100000;
        QCOMPARE(stripped(QByteArray(depth, '{') + QByteArray(depth, '}')),
                 "\n{"_b.repeated(depth) + "}\n"_b.repeated(depth));
    }

    ORV_ROWS(devicesThatAreMissingOrClosed)
    {
        const Rows add([](const std::function<void(Copying&)>& prepare) {
            Copying copying("{x}");
            prepare(copying);
            const bool inputOpen = copying.input.isOpen();
            const bool outputOpen = copying.output.isOpen();
            if (!outputOpen && inputOpen)
                QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
            copying.stripper.process();
            QCOMPARE(copying.output.data(), QByteArray());
            QCOMPARE(copying.input.isOpen(), inputOpen);
            QCOMPARE(copying.output.isOpen(), outputOpen);
            if (outputOpen)
                QCOMPARE(copying.input.pos(), qint64(0));
        });
        add("no input", [](Copying& copying) { copying.stripper.setDevice(nullptr); });
        add("no output", [](Copying& copying) { copying.stripper.setOutput(nullptr); });
        add("input closed", [](Copying& copying) { copying.input.close(); });
        add("output closed", [](Copying& copying) { copying.output.close(); });
        const auto closeBoth = [](Copying& copying) {
            copying.input.close();
            copying.output.close();
        };
        add("both closed", closeBoth);
        ORVTextRtfStripper().process();
    }

    void startsAtTheCurrentPositionAndClosesNothing()
    {
        Copying copying("{skipped}{x}", "before");
        QVERIFY(copying.input.seek(9));
        {
            ORVTextRtfStripper stripper;
            stripper.setDevice(&copying.input);
            stripper.setOutput(&copying.output);
            QCOMPARE(stripper.device(), static_cast<QIODevice*>(&copying.input));
            stripper.process();
        }
        QVERIFY(copying.input.isOpen());
        QVERIFY(copying.output.isOpen());
        QCOMPARE(copying.output.data(), "before\n{x}\n"_b);
    }

    void refusedOutput()
    {
        Copying copying(QByteArray(100000, '{'));
        FullDevice output;
        QVERIFY(output.open(QIODevice::WriteOnly));
        copying.stripper.setOutput(&output);
        copying.stripper.process();
        QVERIFY(copying.input.atEnd());
    }

    void everyPassBeginsAnew()
    {
        Copying copying("{\\pict 89");
        Copying second("x\\b");
        Copying third(" y");
        for (QBuffer* input : {&copying.input, &second.input, &third.input}) {
            copying.stripper.setDevice(input);
            copying.stripper.process();
        }
        QCOMPARE(copying.output.data(), "\n{\\pictxb y"_b);
    }

    /*! The inherited read() has nowhere to write what it copies: it reads all the same, and fails. */
    ORV_ROWS(readsWithoutOutput)
    {
        const Rows add([](const QByteArray& rtf, const QString& text) {
            Copying copying(rtf);
            ORVTextRtfStripper& stripper = copying.stripper;
            stripper.setOutput(nullptr);
            QTextDocument document;
            QVERIFY(!stripper.read(&document));
            QCOMPARE(stripper.error(), couldNotOpenDevice);
            QCOMPARE(stripper.errorString(), "Could not open device"_s);
            QVERIFY(copying.input.atEnd());
            QCOMPARE(document.toPlainText(), text);
        });
        add("nothing", QByteArray(), QString());
        add("text without words", "{text}", "text");
        add("words and text", "{\\rtf1 one\\par two}", "onetwo");
        // More than is held back for an output, in words, in numbers and in bytes.
        const int count = 20000;
        add("many words", "{\\rtf1" + "\\b"_b.repeated(count) + " text}", "text");
        add("many numbers", "{\\rtf1" + "\\fs24"_b.repeated(count) + " text}", "text");
        add("many words between text", "{\\rtf1" + "\\b x"_b.repeated(count) + "}",
            QString(count, QLatin1Char('x')));
        add("many escaped bytes", "{\\rtf1" + "\\'e9"_b.repeated(count) + "text}", "text");
        add("much binary data",
            QByteArray("\\bin200 " + QByteArray(200, 'x')).repeated(count / 200) + "{text}", "text");
        add("damage", "}{\\rtf1 text{", "text");
    }

    void readsWithoutDevicesOrDocument()
    {
        QTextDocument document;
        ORVTextRtfStripper stripper;
        QVERIFY(!stripper.read(&document));
        QCOMPARE(stripper.error(), couldNotOpenDevice);

        Copying copying("{x}");
        copying.stripper.setOutput(nullptr);
        QVERIFY(!copying.stripper.read(nullptr));
        QCOMPARE(copying.stripper.error(), noDocument);
    }

    void copiesAfterReadingWithoutOutput()
    {
        Copying copying("{\\rtf1\\b first");
        ORVTextRtfStripper& stripper = copying.stripper;
        stripper.setOutput(nullptr);
        QTextDocument document;
        QVERIFY(!stripper.read(&document));
        Copying second("{\\b second}");
        stripper.setDevice(&second.input);
        stripper.setOutput(&copying.output);
        stripper.process();
        QCOMPARE(copying.output.data(), "\n{\\b second}\n"_b);

        // With an output the status is that of the input again.
        QVERIFY(copying.input.seek(0));
        stripper.setDevice(&copying.input);
        QVERIFY(!stripper.read(&document));
        QCOMPARE(stripper.error(), unmatchedOpeningBrace);
    }
};

ORV_TEST("stripper", TestStripper, QGuiApplication)
#include "stripper.moc"
