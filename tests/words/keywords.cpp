#include "ORVRtfKeywords.h"
#include "testpaths.h"
#include "testsupport.h"

#include <type_traits>

namespace {

/*! Opens the lookup tables, which only subclasses see. */
class Tables : public ORVTextRtfCommon {
public:
    static int spellings() { return int(mMap.size()); }
    static int hashes() { return int(mHash.size()); }
    static bool holds(KeyWord keyWord, unsigned int hash) { return mHash.contains(hash, keyWord); }
};

struct Row {
    const char* name;
    const char* constant;
    ORVTextRtfCommon::KeyWord keyWord;
    QByteArray spelling;
};

/*! The spellings of the file, a name and a spelling on each line, where <LF> stands for a line feed. */
QMap<QByteArray, QByteArray> spellingsOfTheFile()
{
    QFile file(TEST_DATA_DIR "/keywords.txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("there is no file of keywords");
    QMap<QByteArray, QByteArray> spellings;
    for (const QByteArray& line : file.readAll().trimmed().split('\n'))
        spellings.insert(line.left(line.indexOf(' ')), line.mid(line.indexOf(' ') + 1).replace("<LF>", "\n"));
    return spellings;
}

/*! Every control word and control symbol. */
const std::vector<Row>& rows()
{
    static const QMap<QByteArray, QByteArray> spellings = spellingsOfTheFile();
#define ROW(name, spelling) \
    {#name, ORVRtfKeywords::name##Str, ORVTextRtfCommon::name, spellings.value(#name)},
    static const std::vector<Row> all = {ORV_RTF_KEYWORDS(ROW)};
#undef ROW
    return all;
}

} // namespace

static_assert(std::is_same<decltype(ORVRtfKeywords::BoldStr), const char*>::value,
              "constants are plain pointers");

class TestKeywords : public QObject {
    Q_OBJECT

private slots:
    // Runs first: here the tables do not exist yet, unless start-up of the library has built them.
    void firstUseInSeveralThreads()
    {
        std::vector<std::thread> threads;
        std::vector<int> failures(8, 0);
        for (size_t i = 0; i < failures.size(); ++i) {
            threads.emplace_back([&failures, i]() {
                ORVTextRtfCommon common;
                for (const Row& row : rows()) {
                    if (common.fromLatin1(row.spelling.constData(), uint(row.spelling.size())) != row.keyWord)
                        ++failures[i];
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(failures, std::vector<int>(failures.size(), 0));
        QCOMPARE(Tables::spellings(), 237);
        QCOMPARE(Tables::hashes(), 237);
    }

    void tablesHoldEveryWordOnce()
    {
        QSet<int> members;
        QSet<QByteArray> spellings;
        for (const Row& row : rows()) {
            members.insert(row.keyWord);
            spellings.insert(row.spelling);
        }
        QCOMPARE(int(members.size()), 237);
        QCOMPARE(int(spellings.size()), 237);
        QVERIFY(!members.contains(0));
        QCOMPARE(int(rows().size()), 237);
        QCOMPARE(int(ORVTextRtfCommon::KeyWordCount), 237);
        ORVTextRtfCommon common;
        ORVTextRtfCommon::initMap();
        ORVTextRtfCommon::initHash();
        QCOMPARE(Tables::spellings(), 237);
        QCOMPARE(Tables::hashes(), 237);
    }

    ORV_ROWS(spellings)
    {
        const Rows add([](int index) {
            const Row& row = rows()[size_t(index)];
            const uint length = uint(row.spelling.size());
            QCOMPARE(QByteArray(row.constant), row.spelling);
            QCOMPARE(ORVTextRtfCommon::fromLatin1(row.spelling.constData(), length), row.keyWord);
            const QLatin1String spelling = ORVTextRtfCommon::toLatin1(row.keyWord);
            QCOMPARE(QByteArray(spelling.latin1(), int(spelling.size())), row.spelling);
            QVERIFY2(spelling.latin1() == row.constant, "the table points at the exported constant");
            QVERIFY(Tables::holds(row.keyWord, ORVTextRtfCommon::hash(row.spelling.constData(), length)));
        });
        for (size_t i = 0; i < rows().size(); ++i)
            add(rows()[i].name, int(i));
    }

    ORV_ROWS(hash)
    {
        const Rows add([](const QByteArray& bytes, uint expected) {
            QCOMPARE(ORVTextRtfCommon::hash(bytes.constData(), uint(bytes.size())), expected);
        });
        // Length in the upper half, sum of the signed bytes in the lower.
        add("empty", QByteArray(), 0u);
        add("backslash", "\\", 65536u + 92u);
        add("b", "\\b", 2u * 65536u + 92u + 98u);
        add("par", "\\par", 4u * 65536u + 92u + 112u + 97u + 114u);
        add("pard", "\\pard", 5u * 65536u + 92u + 112u + 97u + 114u + 100u);
        add("line feed symbol", "\\\n", 2u * 65536u + 92u + 10u);
        add("0xE9 counts -23", "\xE9", 65513u);
        add("0x80 counts -128", "\x80", 65536u - 128u);
        add("0x7F counts 127", "\x7F", 65536u + 127u);
        add("two bytes of -1", "\xFF\xFF", 131070u);
        add("NUL counts 0", QByteArray("\0", 1), 65536u);
    }

    ORV_ROWS(lookup)
    {
        const Rows add([](const QByteArray& bytes, int expected) {
            QCOMPARE(int(ORVTextRtfCommon::fromLatin1(bytes.constData(), uint(bytes.size()))), expected);
            // Without a terminator.
            QCOMPARE(int(ORVTextRtfCommon::fromLatin1((bytes + "d0").constData(), uint(bytes.size()))),
                     expected);
        });
        add("par", "\\par", ORVTextRtfCommon::NewParagraph);
        add("pard", "\\pard", ORVTextRtfCommon::ResetParagraph);
        QCOMPARE(ORVTextRtfCommon::hash("\\ls", 3), ORVTextRtfCommon::hash("\\sl", 3));
        add("ls", "\\ls", ORVTextRtfCommon::ListOverrideIndex);
        add("sl, whose hash is the same", "\\sl", ORVTextRtfCommon::LineSpacing);
        add("f", "\\f", ORVTextRtfCommon::Font);
        add("u", "\\u", ORVTextRtfCommon::UnicodeCharacterValue);
        add("backslash line feed", "\\\n", ORVTextRtfCommon::NewParagraphSymbol);
        add("backslash carriage return", "\\\r", 0);
        add("empty", "", 0);
        add("backslash alone", "\\", 0);
        add("without backslash", "par", 0);
        add("upper case", "\\PAR", 0);
        add("prefix of a word", "\\pa", 0);
        add("word and more", "\\parx", 0);
        add("parameter included", "\\b0", 0);
        add("letters of a word, other order", "\\apr", 0);
        add("unknown word", "\\unknownword", 0);
        add("unknown symbol", "\\|", 0);
        add("bytes above 0x7F", "\\\xE9\xE9", 0);
        add("64 bytes", "\\" + QByteArray(63, 'z'), 0);
    }

    void noSpellingOutsideTheTable()
    {
        for (const int keyWord : {int(ORVTextRtfCommon::NoKeyWord), int(ORVTextRtfCommon::KeyWordEnd), 4095})
            QVERIFY(!ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(keyWord)).latin1());
    }
};

ORV_TEST("keywords", TestKeywords, QCoreApplication)
#include "keywords.moc"
