#include "ORVRtfWordCache_p.h"
#include "testsupport.h"

namespace {

/*! Whether \a memory scans \a bytes as it is done without one. */
bool isScannedRight(ORVRtfWordCache& memory, const QByteArray& bytes)
{
    const int size = int(bytes.size());
    const ORVRtfControlWord expected = ORVRtfControlWord::scan(bytes.constData(), size);
    const ORVTextRtfCommon::KeyWord keyWord =
        ORVTextRtfCommon::fromLatin1(bytes.constData(), unsigned(expected.spellingLength));
    const ORVRtfWordCache::Word word = memory.scan(bytes.constData(), size);
    return word.scanned.status == expected.status && word.scanned.spellingLength == expected.spellingLength
        && word.scanned.length == expected.length && word.scanned.hasParameter == expected.hasParameter
        && word.scanned.parameter == expected.parameter && word.keyWord == keyWord;
}

QByteArray spelling(int keyWord)
{
    return ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(keyWord)).latin1();
}

} // namespace

/*! Control words that come again are what they were, whatever came between and whatever follows. */
class TestWordCache : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ORVTextRtfCommon::initHash(); }

    void wordsAgain_data()
    {
        Columns<QByteArray, QByteArray>("first", "second");
        const auto row = [](const char* first, const char* second) {
            QTest::newRow(first) << QByteArray(first) << QByteArray(second);
        };
        row("\\b", "\\bold");
        row("\\b ", "\\b0 ");
        row("\\b0", "\\b00");
        row("\\fs2", "\\fs24");
        row("\\fs24", "\\fs24 ");
        row("\\fs24 ", "\\fs24");
        row("\\fs-", "\\fs-2");
        row("\\fs", "\\fs-2");
        row("\\par", "\\pard");
        row("\\pard", "\\par");
        row("\\par{", "\\par}");
        row("\\~", "\\~ ");
        row("\\~a", "\\~b");
        row("\\ a", "\\  ");
        row("\\- ", "\\-a");
        row("\\'e9", "\\'e8");
        row("\\clpadfb3", "\\clpadfl3");
        // Of 16 bytes, and of 17
        row("\\listoverridet12", "\\listoverridet1");
        row("\\listoverridet1 ", "\\listoverridet1");
        row("\\listoverridet123", "\\listoverridet12");
        row("\\listoverridetab", "\\listoverridetable");
    }

    void wordsAgain()
    {
        FETCH(QByteArray, first, QByteArray, second);
        for (const int size : {0, 1, 12, 13, 14, 15, 16, 17, 40}) {
            const QByteArray rest(size, 'x');
            const QByteArray end = "{"_b.repeated(size);
            for (const QByteArray& behind : {rest, end}) {
                ORVRtfWordCache memory;
                for (int i = 0; i < 3; ++i) {
                    QVERIFY(isScannedRight(memory, first + behind));
                    QVERIFY(isScannedRight(memory, first + behind));
                    QVERIFY(isScannedRight(memory, second + behind));
                }
            }
        }
    }

    /*! Whatever stands behind a word that is known may be a part of another. */
    void everyByteBehind()
    {
        const QByteArray rest(20, '{');
        for (const QByteArray& word : {"\\b"_b, "\\b1"_b, "\\b-"_b, "\\b "_b, "\\*"_b, "\\-"_b, "\\ "_b}) {
            ORVRtfWordCache memory;
            QVERIFY(isScannedRight(memory, word + rest));
            for (int byte = 0; byte < 256; ++byte) {
                QVERIFY2(isScannedRight(memory, word + char(byte) + rest), qPrintable(QString::number(byte)));
                QVERIFY(isScannedRight(memory, word + rest));
            }
        }
    }

    void allWordsInAnyOrder()
    {
        ORVRtfWordCache memory;
        const QByteArray rest(20, '\\');
        for (int step = 1; step < 40; step += 2) {
            for (int i = 0; i < 3 * ORVTextRtfCommon::KeyWordCount; ++i) {
                const QByteArray word = spelling(1 + i * step % ORVTextRtfCommon::KeyWordCount);
                QVERIFY2(isScannedRight(memory, word + rest), word.constData());
            }
        }
    }

    void words()
    {
        ORVRtfWordCache memory;
        for (int i = 0; i < 2; ++i) {
            const ORVRtfWordCache::Word size = memory.scan("\\fs-24 text and more", 20);
            QCOMPARE(size.keyWord, ORVTextRtfCommon::FontSize);
            QCOMPARE(size.scanned.status, ORVRtfControlWord::Complete);
            QCOMPARE(size.scanned.spellingLength, 3);
            QCOMPARE(size.scanned.length, 7);
            QVERIFY(size.scanned.hasParameter);
            QCOMPARE(size.scanned.parameter, -24);
            QCOMPARE(memory.scan("\\quibble{a word that nobody knows}", 34).keyWord,
                     ORVTextRtfCommon::NoKeyWord);
            QCOMPARE(memory.scan("\\", 1).scanned.status, ORVRtfControlWord::CutOff);
            QCOMPARE(memory.scan("\\", 1).keyWord, ORVTextRtfCommon::NoKeyWord);
        }
    }

    void anyBytes()
    {
        std::mt19937 random(20261122);
        const QByteArray letters = "\\'*-~ bfs019{}\n";
        ORVRtfWordCache memory;
        for (int round = 0; round < 200000; ++round) {
            QByteArray bytes = "\\";
            const int size = int(random() % 24);
            for (int i = 0; i < size; ++i)
                bytes += letters[int(random() % unsigned(letters.size()))];
            QVERIFY2(isScannedRight(memory, bytes), bytes.constData());
        }
    }
};

ORV_TEST("wordcache", TestWordCache, registry::NoApplication)
#include "wordcache.moc"
