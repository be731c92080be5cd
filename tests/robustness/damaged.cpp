#include "rtftesthelpers.h"

#include <QtTest/QtTest>

#include <cmath>
#include <random>

using namespace rtftest;

namespace {

QByteArray header()
{
    QByteArray levels;
    for (int i = 0; i < 3; ++i) {
        levels += "{\\listlevel\\levelnfc" + QByteArray::number(i) + "\\levelnfcn0\\leveljc0\\leveljcn0"
            + "\\levelfollow0\\levelstartat1\\levelspace0\\levelindent0{\\leveltext\\leveltemplateid5\\'02\\'"
              "0"
            + QByteArray::number(i) + ".;}{\\levelnumbers\\'01;}\\fi-360\\li"
            + QByteArray::number(720 * (i + 1)) + "\\lin720}\n";
    }
    return "{\\rtf1\\ansi\\ansicpg1252\\deff1\\uc1\n"
           "{\\fonttbl{\\f0\\froman\\fcharset0\\fprq2{\\*\\panose 02020603}Quibble Serif{\\*\\falt Tms};}\n"
           "{\\f1\\fswiss\\fcharset0 Quibble Sans;}{\\f2\\fmodern\\fprq1\\fcharset204 Quibble Mono;}}\n"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue255;\\red255\\green255\\blue255;}\n"
           "{\\stylesheet{\\s0 Normal;}{\\*\\cs10 Default;}}{\\info{\\title A}{\\author "
           "B}{\\creatim\\yr2020}}\n"
           "{\\*\\listtable{\\list\\listtemplateid1\\listhybrid\n"
        + levels
        + "{\\listname x;}\\listid7}}\n"
          "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}{"
          "\\listoverride\\listid8\\ls2}}\n"
          "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\\fet0\\ftnbj\\aenddoc\\titl"
          "epg\n"
          "{\\header\\pard\\qc Head \\chpgn\\par}{\\footer\\pard\\qr Foot\\par}\n";
}

QByteArray characters()
{
    return "\\pard\\plain\\f0\\fs24 Plain {\\b bold {\\i both\\i0 }\\b0 }{\\ul\\ulc1 under\\ulnone }\n"
           "{\\uld a\\uldash b\\uldashd c\\uldashdd d\\ulwave e\\ulw f\\uldb g}{\\strike\\scaps h}\n"
           "{\\super 1}{\\sub 2}{\\up6 3}{\\dn6 4}{\\nosupersub 5}{\\cf1\\cb2\\highlight2 colours}\n"
           "{\\outl\\cf1 line\\outl0 }{\\orvrevlvl2 revised}\\lquote q\\rquote\\ldblquote r\\rdblquote\n"
           "\\endash\\emdash\\bullet\\tab\\line\\~\\-\\_\\{\\}\\\\ \\'e9\\'80\\u8364?{\\uc2\\u8212\\'97\\'97}"
           "{\\uc0\\u-4064 }{\\f2\\'e4}{\\upr{ansi}{\\*\\ud{unicode}}}{\\*\\unknown {skipped}}\\par\n";
}

QByteArray paragraphs()
{
    return "\\pard\\qj\\li720\\fi-"
           "360\\ri360\\sb120\\sa120\\sl360\\slmult1\\tx720\\tqr\\tx1440\\tqdec\\tx2880 "
           "A paragraph.\\par\\pard\\rtlpar\\qc\\lin360\\rin360\\keep\\keepn\\pagebb Another.\\page "
           "More.\\\nEnd.\\par\n"
           "{\\listtext 1.\\tab}\\pard\\ls1\\ilvl0 First.\\par\\ilvl2 Second.\\par\\pard\\ls2 "
           "Third.\\par\\pard\n";
}

QByteArray objects()
{
    return "{\\field{\\*\\fldinst {HYPERLINK \"http://example.com/\"}}{\\fldrslt {\\ul a link}}} and\n"
           "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}{\\*\\bkmkstart mark}text{\\*\\bkmkend mark}\n"
           "{\\super\\chftn{\\footnote\\pard\\plain\\chftn A note.}}{\\*\\atrfstart 1}commented{\\*\\atrfend "
           "1}\n"
           "{\\*\\atnid I}{\\*\\atnauthor J}\\chatn{\\*\\annotation{\\*\\atnref 1}A comment.}\\par\n"
           "{\\*\\shppict{\\pict{\\*\\nisusfilename a.png}{\\*\\mathmlequation "
           "<math/>}\\picw3\\pich2\\picwgoal1440"
           "\\pichgoal720\\picscalex50\\picscaley50\\pngblip\\wmetafile8\n"
        + QByteArray("P5 3 2 255 picture").toHex()
        + "}}{\\nonshppict{\\pict\\wmetafile8 0100}}{\\*\\orvellinepdf{\\*\\pdffilename a.pdf}\n255044}\n"
          "{\\pict\\jpegblip\\wmetafile\\bin12 P5 1 1 255 A}\\par\n";
}

QByteArray tables()
{
    return "\\trowd\\trgaph108\\trleft0\\trautofit1\\trbrdrt\\brdrs\\clbrdrt\\brdrs\\brdrw30\\brdrcf1\\clcbpa"
           "t2"
           "\\clvertalc\\clvmgf\\cellx3000\\clbrdrb\\brdrnil\\clshdrawnil\\clvertalb\\cellx6000\n"
           "\\pard\\intbl A\\cell B\\cell\\row\n"
           "\\trowd\\clvmrg\\cellx3000\\clmgf\\cellx4000\\clmrg\\cellx6000\\pard\\intbl C\\cell D\\cell "
           "E\\cell\\row\n"
           "\\trowd\\cellx3000\\cellx6000\\pard\\intbl F\\cell\\pard\\intbl\\itap2 inner\\nestcell\n"
           "{\\*\\nesttableprops\\trowd\\cellx1000\\nestrow}{\\nonesttables\\par}\\pard\\intbl "
           "G\\cell\\lastrow\\row\n"
           "\\pard after\\par\n";
}

/*! A document in which every kind of group and nearly every control word occurs. */
QByteArray sample()
{
    QByteArray rtf = header();
    for (int i = 0; i < 3; ++i)
        rtf += characters() + paragraphs() + objects() + tables();
    return rtf + "}";
}

/*! What is wrong with the outcome of a read, empty when nothing is. */
QString complaint(const Reading& reading)
{
    const QList<int> known{0, 1, 2, 7, 8, 9};
    if (!known.contains(reading.status))
        return QStringLiteral("status %1").arg(reading.status);
    if (reading.ok != (reading.status == 0) || reading.message.isEmpty() != (reading.status == 0))
        return QStringLiteral("result and message do not fit to status %1").arg(reading.status);
    for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next()) {
        const Properties properties = propertiesOf(block.blockFormat());
        for (const QVariant& value : properties) {
            if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
                return QStringLiteral("a length is no number");
        }
    }
    for (const QTextImageFormat& format : reading.images()) {
        if (!(format.width() >= 0 && format.width() <= 32767 && format.height() >= 0
              && format.height() <= 32767))
            return QStringLiteral("a picture has no sensible size");
    }
    return QString();
}

} // namespace

/*! Damaged input: every read ends with one of the known codes, and leaves a document that can be used. */
class TestDamaged : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void sampleIsSound();
    void cutOffAnywhere();
    void oneBitFlippedAnywhere();
    void oneByteReplaced_data();
    void oneByteReplaced();
    void oneByteLost();
    void shuffledWords();
    void manyOfAKind_data();
    void manyOfAKind();
};

// The picture decoders and fonts of Qt warn of each damaged input; here these warnings are only noise.
void TestDamaged::initTestCase()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

void TestDamaged::sampleIsSound()
{
    QVERIFY(sample().size() > 6500);
    const Reading reading = read(sample());
    QCOMPARE(reading.status, 0);
    QCOMPARE(complaint(reading), QString());
    QCOMPARE(reading.images().size(), 6);
}

// The group of the document closes with the very last byte.
void TestDamaged::cutOffAnywhere()
{
    const QByteArray rtf = sample();
    QCOMPARE(read(rtf.left(0)).status, 0);
    const QList<int> expected{2, 7, 8, 9};
    for (int length = 1; length < rtf.size(); ++length) {
        const Reading reading = read(rtf.left(length));
        const QByteArray message = "cut off after " + QByteArray::number(length) + " bytes";
        QVERIFY2(expected.contains(reading.status), message.constData());
        QVERIFY2(complaint(reading).isEmpty(), message.constData());
    }
}

void TestDamaged::oneBitFlippedAnywhere()
{
    const QByteArray rtf = sample();
    for (int i = 0; i < rtf.size(); ++i) {
        QByteArray flipped = rtf;
        flipped[i] = char(flipped.at(i) ^ 0x01);
        const QString wrong = complaint(read(flipped));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("byte %1: %2").arg(i).arg(wrong)));
    }
}

void TestDamaged::oneByteReplaced_data()
{
    QTest::addColumn<char>("byte");
    QTest::newRow("opening brace") << '{';
    QTest::newRow("closing brace") << '}';
    QTest::newRow("backslash") << '\\';
    QTest::newRow("digit") << '9';
}

void TestDamaged::oneByteReplaced()
{
    QFETCH(char, byte);

    // Every fifth position, from a different one for each byte.
    const QByteArray rtf = sample();
    for (int i = byte % 5; i < rtf.size(); i += 5) {
        QByteArray replaced = rtf;
        replaced[i] = byte;
        const QString wrong = complaint(read(replaced));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("byte %1: %2").arg(i).arg(wrong)));
    }
}

void TestDamaged::oneByteLost()
{
    const QByteArray rtf = sample();
    for (int i = 0; i < rtf.size(); i += 5) {
        QByteArray shorter = rtf;
        shorter.remove(i, 1);
        const QString wrong = complaint(read(shorter));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("byte %1: %2").arg(i).arg(wrong)));
    }
}

// Pieces of the sample in a random order; the seed is fixed, so the inputs are always the same.
void TestDamaged::shuffledWords()
{
    QList<QByteArray> pieces;
    QByteArray piece;
    const QByteArray rtf = sample();
    for (char c : rtf) {
        if (c == '\\' || c == '{' || c == '}') {
            pieces << piece;
            piece.clear();
        }
        piece += c;
    }
    std::mt19937 random(20);
    for (int round = 0; round < 200; ++round) {
        QByteArray shuffled;
        for (int i = 0; i < 1000; ++i)
            shuffled += pieces.at(int(random() % uint(pieces.size())));
        const QString wrong = complaint(read(shuffled));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("round %1: %2").arg(round).arg(wrong)));
    }
}

void TestDamaged::manyOfAKind_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<int>("status");
    QTest::newRow("opening braces") << QByteArray("{") << 2;
    QTest::newRow("closing braces") << QByteArray("}") << 1;
    QTest::newRow("backslashes and letters") << QByteArray("\\x") << 8;
    QTest::newRow("unclosed skipped groups") << QByteArray("{\\*\\unknown ") << 2;
    QTest::newRow("unclosed fields") << QByteArray("{\\field{\\*\\fldinst x") << 2;
    QTest::newRow("unclosed pictures") << QByteArray("{\\pict\\pngblip 89504e47") << 2;
    QTest::newRow("unclosed notes") << QByteArray("{\\footnote x") << 2;
    QTest::newRow("unclosed cells") << QByteArray("\\intbl x\\cell ") << 0;
    QTest::newRow("nesting without end") << QByteArray("{\\itap99 x\\nestcell ") << 2;
    QTest::newRow("bad escapes") << QByteArray("\\'zz") << 9;
    QTest::newRow("bad binary data") << QByteArray("\\bin2147483647 ") << 9;
    QTest::newRow("NUL bytes") << QByteArray("\0", 1) << 0;
}

void TestDamaged::manyOfAKind()
{
    QFETCH(QByteArray, piece);
    QFETCH(int, status);

    const Reading reading = read(piece.repeated(2000));
    QCOMPARE(complaint(reading), QString());
    QCOMPARE(reading.status, status);
}

QTEST_MAIN(TestDamaged)
#include "tst_damaged.moc"
