#include "ORVRtfControlWord_p.h"
#include "ORVRtfInput_p.h"
#include "ORVRtfWordTable_p.h"
#include "testsupport.h"

namespace {

QByteArray spelling(int keyWord)
{
    return ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(keyWord)).latin1();
}

int found(const QByteArray& word)
{
    return ORVRtfWordTable::find(word.constData(), int(word.size()));
}

/*! What the public look-up finds, which has tables of its own. */
int expected(const QByteArray& word)
{
    return ORVTextRtfCommon::fromLatin1(word.constData(), unsigned(word.size()));
}

/*! The length of the text that \a bytes begin with, the first byte being text whatever it is. */
int textLength(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        qFatal("the buffer does not open");
    ORVRtfInput input;
    input.setDevice(&buffer);
    return input.charAt(0) == bytes.at(0) ? input.textLength() : -1;
}

} // namespace

/*!
    The bytes of a device as the tokenizer sees them: control words as it scans them and looks them up, and
    the length of text. The rest is seen in what is read.
*/
class TestTokens : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ORVTextRtfCommon::initHash(); }

    void wordsAndBeginningsAndLongerWords()
    {
        for (int keyWord = 1; keyWord <= ORVTextRtfCommon::KeyWordCount; ++keyWord) {
            const QByteArray word = spelling(keyWord);
            QCOMPARE(found(word), keyWord);
            for (int size = 2; size < word.size(); ++size)
                QCOMPARE(found(word.left(size)), expected(word.left(size)));
            for (char c = 'a'; c <= 'z'; ++c)
                QCOMPARE(found(word + c), expected(word + c));
            // Upper and lower case are different words.
            QCOMPARE(found(word.toUpper()), expected(word.toUpper()));
        }
    }

    void everyControlSymbol()
    {
        for (int byte = 0; byte < 256; ++byte) {
            const QByteArray symbol = QByteArray("\\") + char(byte);
            QVERIFY2(found(symbol) == expected(symbol), qPrintable(QString::number(byte)));
        }
    }

    void everyWordOfThreeLetters()
    {
        for (int i = 0; i < 26 * 26 * 26; ++i) {
            const QByteArray word =
                QByteArray("\\") + char('a' + i % 26) + char('a' + i / 26 % 26) + char('a' + i / 26 / 26);
            QVERIFY2(found(word) == expected(word), word.constData());
        }
    }

    ORV_ROWS(scannedWords)
    {
        const Rows add(
            [](const QByteArray& bytes, int keyWord, bool hasParameter, int parameter, int length) {
                const ORVRtfControlWord word = ORVRtfControlWord::scan(bytes.constData(), int(bytes.size()));
                QCOMPARE(word.status, ORVRtfControlWord::Complete);
                QCOMPARE(int(word.keyWord), keyWord);
                QCOMPARE(word.hasParameter, hasParameter);
                QCOMPARE(word.parameter, parameter);
                QCOMPARE(word.length, length);
            });
        add("negative", "\\fs-24 text", ORVTextRtfCommon::FontSize, true, -24, 7);
        add("to the end", "\\fs24", ORVTextRtfCommon::FontSize, true, 24, 5);
        add("zero", "\\b0 ", ORVTextRtfCommon::Bold, true, 0, 4);
        add("two blanks", "\\b  a", ORVTextRtfCommon::Bold, false, 0, 3);
        add("hyphen without digits", "\\b- a", ORVTextRtfCommon::Bold, false, 0, 4);
        add("shorter word", "\\par\\pard", ORVTextRtfCommon::NewParagraph, false, 0, 4);
        add("longer word", "\\pard\\par", ORVTextRtfCommon::ResetParagraph, false, 0, 5);
        add("symbol", "\\'e9", ORVTextRtfCommon::ExtendedCharacterValue, false, 0, 2);
        add("symbol and blank", "\\~ ", ORVTextRtfCommon::NonBreakableSpace, false, 0, 2);
        add("unknown", "\\quibble7 ", ORVTextRtfCommon::NoKeyWord, true, 7, 10);
    }

    ORV_ROWS(incompleteWords)
    {
        const Rows add([](const QByteArray& bytes, int status) {
            const ORVRtfControlWord word = ORVRtfControlWord::scan(bytes.constData(), int(bytes.size()));
            QCOMPARE(int(word.status), status);
            QCOMPARE(word.keyWord, ORVTextRtfCommon::NoKeyWord);
        });
        add("backslash", "\\", ORVRtfControlWord::CutOff);
        add("letters to the end", "\\par", ORVRtfControlWord::TooLong);
        add("64 bytes", "\\" + QByteArray(63, 'a') + ' ', ORVRtfControlWord::TooLong);
    }

    /*! At any place, beside any other bytes: many are looked at together. */
    ORV_ROWS(textEndsAtSpecialBytes)
    {
        const Rows add([](char special) {
            for (int neighbour = 0; neighbour < 256; ++neighbour) {
                if ("\\{}\n\r"_b.contains(char(neighbour)))
                    continue;
                for (int place = 1; place < 20; ++place)
                    QCOMPARE(
                        textLength(QByteArray(24, char(neighbour)).replace(place, 1, QByteArray(1, special))),
                        place);
            }
        });
        for (const char special : {'\\', '{', '}', '\n', '\r'})
            add(QByteArray::number(special, 16), special);
    }

    void textEndsWithTheBuffer()
    {
        for (int size = 1; size < 40; ++size)
            QCOMPARE(textLength('{' + QByteArray(size - 1, 'a')), size);
    }
};

ORV_TEST("tokens", TestTokens, QCoreApplication)
#include "tokens.moc"
