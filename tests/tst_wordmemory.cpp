#include "ORVRtfWordMemory_p.h"

#include <QtTest>

/*! Control words that are looked up again are what they were, whatever came between. */
class tst_wordmemory : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ORVTextRtfCommon::initHash(); }

    void allWordsInAnyOrder();
    void unknownWords();
    void startsOfWords();
};

void tst_wordmemory::allWordsInAnyOrder()
{
    ORVRtfWordMemory memory;
    for (int step = 1; step < 40; step += 2) {
        for (int i = 0; i < 3 * ORVTextRtfCommon::KeyWordCount; ++i) {
            const auto word = ORVTextRtfCommon::KeyWord(1 + i * step % ORVTextRtfCommon::KeyWordCount);
            const QByteArray spelling(ORVTextRtfCommon::toLatin1(word).latin1());
            QCOMPARE(memory.find(spelling.constData(), unsigned(spelling.size())),
                     ORVTextRtfCommon::fromLatin1(spelling.constData(), unsigned(spelling.size())));
        }
    }
}

void tst_wordmemory::unknownWords()
{
    ORVRtfWordMemory memory;
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(memory.find("\\quibble", 8), ORVTextRtfCommon::NoKeyWord);
        QCOMPARE(memory.find("\\quibblequibblequibblequibble", 29), ORVTextRtfCommon::NoKeyWord);
        QCOMPARE(memory.find("", 0), ORVTextRtfCommon::NoKeyWord);
        QCOMPARE(memory.find("\\", 1), ORVTextRtfCommon::NoKeyWord);
    }
}

// The same place, length and first and last letter, or the start of a word only.
void tst_wordmemory::startsOfWords()
{
    ORVRtfWordMemory memory;
    QCOMPARE(memory.find("\\bold", 2), ORVTextRtfCommon::Bold);
    QCOMPARE(memory.find("\\bold", 5), ORVTextRtfCommon::NoKeyWord);
    QCOMPARE(memory.find("\\bold", 2), ORVTextRtfCommon::Bold);
    QCOMPARE(memory.find("\\pard", 5), ORVTextRtfCommon::ResetParagraph);
    QCOMPARE(memory.find("\\pxrd", 5), ORVTextRtfCommon::NoKeyWord);
    QCOMPARE(memory.find("\\pard", 5), ORVTextRtfCommon::ResetParagraph);
}

QTEST_APPLESS_MAIN(tst_wordmemory)
#include "tst_wordmemory.moc"
