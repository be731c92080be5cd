#include "ORVTextListFormat.h"

#include "ORVRtfProperties.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QtTest>

Q_DECLARE_METATYPE(ORVTextListLevel)
Q_DECLARE_METATYPE(QList<ORVTextListLevel>)

namespace {

ORVTextListLevel makeLevel(unsigned kind, const QString& text, double indent = 0, double firstLine = 0)
{
    ORVTextListLevel level;
    level.setKind(kind);
    level.setText(text);
    level.setIndent(indent);
    level.setFirstLinePosition(firstLine);
    return level;
}

QTextListFormat formatOf(const QList<ORVTextListLevel>& levels)
{
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, levels);
    return format;
}

QList<ORVTextListLevel> twoLevels()
{
    return QList<ORVTextListLevel>() << makeLevel(ORVTextListLevel::Decimal, QLatin1String("%0."), 36, 18)
                                     << makeLevel(ORVTextListLevel::LowerLetter, QLatin1String("%1.%0)"),
                                                  72.5, 54.25);
}

// A document of paragraphs "0", "1", ..., of which those up to the given number are items of one list.
class ListDocument {
public:
    ListDocument(const QTextListFormat& format, int items, int paragraphs)
    {
        QTextCursor cursor(&document);
        for (int i = 0; i < paragraphs; ++i) {
            if (i > 0)
                cursor.insertBlock();
            cursor.insertText(QString::number(i));
        }
        list = QTextCursor(document.begin()).createList(format);
        for (int i = 1; i < items; ++i)
            list->add(block(i));
    }

    QTextBlock block(int number) const { return document.findBlockByNumber(number); }
    QTextBlockFormat format(int number) const { return block(number).blockFormat(); }

    QTextDocument document;
    QTextList* list;
};

} // namespace

class TestTextListFormat : public QObject {
    Q_OBJECT

private slots:
    void levelDefaults();
    void levelsCompareByAllFields();

    void storedLevelsComeBack_data();
    void storedLevelsComeBack();
    void storedLevelsSurviveInDocument();
    void equalLevelsGiveEqualFormats();
    void noLevelsRemoveStoredOnes();
    void damagedLevelsAreLeftOut();

    void firstLevelPicksMarker_data();
    void firstLevelPicksMarker();
    void markerIsShownByQt_data();
    void markerIsShownByQt();
    void setLevelsKeepsIndentOfFormat();

    void levelOfStockStyle_data();
    void levelOfStockStyle();
    void levelOfStockStyleHasIndentOfFormat();
    void noLevelsWithoutStyle_data();
    void noLevelsWithoutStyle();

    void blockLevelIsStored();
    void blockLevelOfStranger();
    void negativeLevelCountsAsZero();
    void setBlockLevelGivesIndents();
    void setBlockLevelKeepsIndentsOfBlock_data();
    void setBlockLevelKeepsIndentsOfBlock();
    void setBlockLevelWithoutSuchLevel_data();
    void setBlockLevelWithoutSuchLevel();
    void setBlockLevelKeepsMembershipAndFormat();
    void setBlockLevelOfStrangerDoesNothing();
    void sameLevelAgainChangesNothing();
};

void TestTextListFormat::levelDefaults()
{
    const ORVTextListLevel level;
    QCOMPARE(level.text(), QString());
    QCOMPARE(level.kind(), unsigned(ORVTextListLevel::Decimal));
    QCOMPARE(level.indent(), 0.0);
    QCOMPARE(level.firstLinePosition(), 0.0);
}

void TestTextListFormat::levelsCompareByAllFields()
{
    const ORVTextListLevel level = makeLevel(ORVTextListLevel::UpperRoman, QLatin1String("%0"), 10, 20);
    QVERIFY(level == makeLevel(ORVTextListLevel::UpperRoman, QLatin1String("%0"), 10, 20));
    QVERIFY(level != makeLevel(ORVTextListLevel::LowerRoman, QLatin1String("%0"), 10, 20));
    QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, QLatin1String("%0."), 10, 20));
    QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, QLatin1String("%0"), 11, 20));
    QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, QLatin1String("%0"), 10, 21));
}

void TestTextListFormat::storedLevelsComeBack_data()
{
    QTest::addColumn<QList<ORVTextListLevel>>("levels");

    QTest::newRow("default level") << (QList<ORVTextListLevel>() << ORVTextListLevel());
    QTest::newRow("two levels") << twoLevels();
    QList<ORVTextListLevel> nine;
    for (int i = 0; i < 9; ++i)
        nine << makeLevel(unsigned(i % 6), QString::fromLatin1("%%1").arg(i), 36.0 * i, 36.0 * i - 18);
    QTest::newRow("nine levels") << nine;
    QTest::newRow("unknown kind") << (QList<ORVTextListLevel>()
                                      << makeLevel(4000000000u, QLatin1String("%0")));
    QTest::newRow("fractions and negative numbers")
        << (QList<ORVTextListLevel>() << makeLevel(1, QLatin1String("%0"), 1.0 / 3, -0.1));
    const QChar odd[] = {QChar(0xd800), QChar(0), QChar('\n'), QChar(0xf0b7), QChar(' '), QChar(0x2022)};
    QTest::newRow("any characters") << (QList<ORVTextListLevel>() << makeLevel(0, QString(odd, 6)));
}

void TestTextListFormat::storedLevelsComeBack()
{
    QFETCH(QList<ORVTextListLevel>, levels);
    QTextListFormat format;
    format.setStyle(QTextListFormat::ListUpperAlpha);
    ORVTextListFormat::setLevels(format, levels);
    QVERIFY(ORVTextListFormat::levels(format) == levels);
}

void TestTextListFormat::storedLevelsSurviveInDocument()
{
    ListDocument original(formatOf(twoLevels()), 2, 3);
    QVERIFY(ORVTextListFormat::levels(original.list->format()) == twoLevels());
    const QScopedPointer<QTextDocument> copy(original.document.clone());
    QVERIFY(copy->begin().textList());
    QVERIFY(ORVTextListFormat::levels(copy->begin().textList()->format()) == twoLevels());
}

void TestTextListFormat::equalLevelsGiveEqualFormats()
{
    QVERIFY(formatOf(twoLevels()) == formatOf(twoLevels()));
    QVERIFY(formatOf(twoLevels()) != formatOf(twoLevels().mid(0, 1)));
}

void TestTextListFormat::noLevelsRemoveStoredOnes()
{
    QTextListFormat format = formatOf(
        QList<ORVTextListLevel>() << makeLevel(ORVTextListLevel::LowerRoman, QLatin1String("(%0)"), 99, 9));
    ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>());
    const QList<ORVTextListLevel> derived = QList<ORVTextListLevel>()
        << makeLevel(ORVTextListLevel::LowerRoman, QLatin1String("(%0)"), 30, 30);
    QVERIFY(ORVTextListFormat::levels(format) == derived);
}

// The property is part of a format that anybody may write to.
void TestTextListFormat::damagedLevelsAreLeftOut()
{
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, twoLevels());
    int damaged = 0;
    const QMap<int, QVariant> properties = format.properties();
    for (auto it = properties.constBegin(); it != properties.constEnd(); ++it) {
        if (it.key() >= QTextFormat::UserProperty) {
            const QString text = it.value().toString();
            format.setProperty(it.key(), text.left(text.size() - 8));
            ++damaged;
        }
    }
    QCOMPARE(damaged, 1);
    QVERIFY(ORVTextListFormat::levels(format) == twoLevels().mid(0, 1));
}

void TestTextListFormat::firstLevelPicksMarker_data()
{
    QTest::addColumn<unsigned>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("suffix");

    typedef ORVTextListLevel Level;
    typedef QTextListFormat Format;
    const auto row = [](const char* name, unsigned kind, const QString& text, Format::Style style,
                        const char* prefix, const char* suffix) {
        QTest::newRow(name) << kind << text << int(style) << QString::fromLatin1(prefix)
                            << QString::fromLatin1(suffix);
    };
    const QLatin1String plain("%0.");
    row("decimal", Level::Decimal, plain, Format::ListDecimal, "", ".");
    row("lower letter", Level::LowerLetter, plain, Format::ListLowerAlpha, "", ".");
    row("upper letter", Level::UpperLetter, plain, Format::ListUpperAlpha, "", ".");
    row("lower roman", Level::LowerRoman, plain, Format::ListLowerRoman, "", ".");
    row("upper roman", Level::UpperRoman, plain, Format::ListUpperRoman, "", ".");
    row("unknown kind", 6, plain, Format::ListDecimal, "", ".");
    row("text on both sides", Level::Decimal, QLatin1String("(%0)"), Format::ListDecimal, "(", ")");
    row("words", Level::UpperRoman, QLatin1String("Part %0: "), Format::ListUpperRoman, "Part ", ": ");

    const auto bullet = [row](const char* name, ushort marker, Format::Style style) {
        row(name, Level::Bullet, QString(QChar(marker)), style, nullptr, nullptr);
    };
    bullet("bullet", 0x2022, Format::ListDisc);
    bullet("bullet of the Symbol font", 0xf0b7, Format::ListDisc);
    bullet("dash", '-', Format::ListDisc);
    bullet("white bullet", 0x25e6, Format::ListCircle);
    bullet("o of Courier New", 'o', Format::ListCircle);
    bullet("small square", 0x25aa, Format::ListSquare);
    bullet("square", 0x25a0, Format::ListSquare);
    bullet("section sign, a square in Wingdings", 0xa7, Format::ListSquare);
    bullet("square of Wingdings in the private use area", 0xf0a7, Format::ListSquare);
    row("bullet with blanks around it", Level::Bullet, QLatin1String(" o "), Format::ListCircle, nullptr,
        nullptr);
    row("bullet without marker", Level::Bullet, QString(), Format::ListDisc, nullptr, nullptr);
    row("bullet with a placeholder", Level::Bullet, QLatin1String("(%0)"), Format::ListDisc, nullptr,
        nullptr);
}

// A null prefix or suffix stands for a property that is absent.
void TestTextListFormat::firstLevelPicksMarker()
{
    QFETCH(unsigned, kind);
    QFETCH(QString, text);
    QFETCH(QString, prefix);
    QFETCH(QString, suffix);
    QTextListFormat format;
    format.setNumberPrefix(QLatin1String("old"));
    format.setNumberSuffix(QLatin1String("old"));
    ORVTextListFormat::setLevels(format,
                                 QList<ORVTextListLevel>()
                                     << makeLevel(kind, text)
                                     << makeLevel(ORVTextListLevel::Decimal, QLatin1String("<%0>")));
    QTEST(int(format.style()), "style");
    QCOMPARE(format.hasProperty(QTextFormat::ListNumberPrefix), !prefix.isNull());
    QCOMPARE(format.hasProperty(QTextFormat::ListNumberSuffix), !suffix.isNull());
    QCOMPARE(format.numberPrefix(), prefix);
    QCOMPARE(format.numberSuffix(), suffix);
}

void TestTextListFormat::markerIsShownByQt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    QTest::newRow("with point") << "%0."
                                << "ii.";
    QTest::newRow("in brackets") << "[%0]"
                                 << "[ii]";
    QTest::newRow("number alone") << "%0"
                                  << "ii";
    QTest::newRow("no number") << "Note"
                               << "ii.";
    QTest::newRow("empty") << ""
                           << "ii.";
}

void TestTextListFormat::markerIsShownByQt()
{
    QFETCH(QString, text);
    const QList<ORVTextListLevel> levels = QList<ORVTextListLevel>()
        << makeLevel(ORVTextListLevel::LowerRoman, text);
    const ListDocument lists(formatOf(levels), 2, 2);
    QTEST(lists.list->itemText(lists.block(1)), "shown");
}

void TestTextListFormat::setLevelsKeepsIndentOfFormat()
{
    QTextListFormat format;
    format.setIndent(4);
    ORVTextListFormat::setLevels(format, twoLevels());
    QCOMPARE(format.indent(), 4);
}

void TestTextListFormat::levelOfStockStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<unsigned>("kind");
    QTest::addColumn<QString>("text");

    typedef ORVTextListLevel Level;
    typedef QTextListFormat Format;
    const auto row = [](const char* name, Format::Style style, const char* prefix, const char* suffix,
                        Level::Kind kind, const QString& text) {
        QTest::newRow(name) << int(style) << QString::fromLatin1(prefix) << QString::fromLatin1(suffix)
                            << unsigned(kind) << text;
    };
    const QLatin1String plain("%0.");
    row("disc", Format::ListDisc, nullptr, nullptr, Level::Bullet, QString(QChar(0x2022)));
    row("circle", Format::ListCircle, nullptr, nullptr, Level::Bullet, QString(QChar(0x25e6)));
    row("square", Format::ListSquare, nullptr, nullptr, Level::Bullet, QString(QChar(0x25aa)));
    row("decimal", Format::ListDecimal, nullptr, nullptr, Level::Decimal, plain);
    row("lower alpha", Format::ListLowerAlpha, nullptr, nullptr, Level::LowerLetter, plain);
    row("upper alpha", Format::ListUpperAlpha, nullptr, nullptr, Level::UpperLetter, plain);
    row("lower roman", Format::ListLowerRoman, nullptr, nullptr, Level::LowerRoman, plain);
    row("upper roman", Format::ListUpperRoman, nullptr, nullptr, Level::UpperRoman, plain);
    row("prefix and suffix", Format::ListDecimal, "(", ")", Level::Decimal, QLatin1String("(%0)"));
    row("prefix alone", Format::ListDecimal, "No. ", nullptr, Level::Decimal, QLatin1String("No. %0."));
    row("empty suffix", Format::ListDecimal, nullptr, "", Level::Decimal, QLatin1String("%0"));
    row("disc with suffix", Format::ListDisc, nullptr, ")", Level::Bullet, QString(QChar(0x2022)));
}

// A null prefix or suffix stands for one that is not set.
void TestTextListFormat::levelOfStockStyle()
{
    QFETCH(int, style);
    QFETCH(QString, prefix);
    QFETCH(QString, suffix);
    QFETCH(unsigned, kind);
    QFETCH(QString, text);
    QTextListFormat format;
    format.setStyle(QTextListFormat::Style(style));
    if (!prefix.isNull())
        format.setNumberPrefix(prefix);
    if (!suffix.isNull())
        format.setNumberSuffix(suffix);
    const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(format);
    QCOMPARE(levels.size(), 1);
    QCOMPARE(levels.first().kind(), kind);
    QCOMPARE(levels.first().text(), text);
}

void TestTextListFormat::levelOfStockStyleHasIndentOfFormat()
{
    QTextListFormat format;
    format.setStyle(QTextListFormat::ListDisc);
    format.setIndent(3);
    const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(format);
    QCOMPARE(levels.size(), 1);
    QCOMPARE(levels.first().indent(), 90.0);
    QCOMPARE(levels.first().firstLinePosition(), 90.0);
}

void TestTextListFormat::noLevelsWithoutStyle_data()
{
    QTest::addColumn<int>("style");

    QTest::newRow("undefined") << 0;
    QTest::newRow("unknown") << -9;
    QTest::newRow("positive") << 3;
}

void TestTextListFormat::noLevelsWithoutStyle()
{
    QFETCH(int, style);
    QTextListFormat format;
    QVERIFY(ORVTextListFormat::levels(format).isEmpty());
    format.setProperty(QTextFormat::ListStyle, style);
    QVERIFY(ORVTextListFormat::levels(format).isEmpty());
}

void TestTextListFormat::blockLevelIsStored()
{
    ListDocument lists(formatOf(twoLevels()), 2, 2);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(1)), 0);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(1)), 1);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(0)), 0);
    QVERIFY(lists.format(1).property(ORVRtfProperty::ListLevel) == QVariant(1));
}

void TestTextListFormat::blockLevelOfStranger()
{
    ListDocument lists(formatOf(twoLevels()), 2, 3);
    QTextBlockFormat format = lists.format(2);
    format.setProperty(ORVRtfProperty::ListLevel, 5);
    QTextCursor(lists.block(2)).setBlockFormat(format);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(2)), 0);

    ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
    QCOMPARE(ORVTextListFormat::blockLevel(nullptr, lists.block(1)), 0);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, QTextBlock()), 0);
    const ListDocument others(formatOf(twoLevels()), 2, 2);
    QCOMPARE(ORVTextListFormat::blockLevel(others.list, lists.block(1)), 0);
}

void TestTextListFormat::negativeLevelCountsAsZero()
{
    ListDocument lists(formatOf(twoLevels()), 1, 1);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), -3);
    QVERIFY(lists.format(0).property(ORVRtfProperty::ListLevel) == QVariant(0));
    QCOMPARE(lists.format(0).doubleProperty(ORVRtfProperty::LeftIndent), 36.0);

    QTextBlockFormat format = lists.format(0);
    format.setProperty(ORVRtfProperty::ListLevel, -3);
    QTextCursor(lists.block(0)).setBlockFormat(format);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(0)), 0);
}

void TestTextListFormat::setBlockLevelGivesIndents()
{
    ListDocument lists(formatOf(twoLevels()), 2, 2);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 0);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
    QVERIFY(lists.format(0).property(ORVRtfProperty::LeftIndent) == QVariant(36.0));
    QVERIFY(lists.format(0).property(QTextFormat::TextIndent) == QVariant(18.0));
    QVERIFY(lists.format(1).property(ORVRtfProperty::LeftIndent) == QVariant(72.5));
    QVERIFY(lists.format(1).property(QTextFormat::TextIndent) == QVariant(54.25));
}

void TestTextListFormat::setBlockLevelKeepsIndentsOfBlock_data()
{
    QTest::addColumn<int>("ownIndent");

    QTest::newRow("left indent") << int(ORVRtfProperty::LeftIndent);
    QTest::newRow("first line") << int(QTextFormat::TextIndent);
}

void TestTextListFormat::setBlockLevelKeepsIndentsOfBlock()
{
    QFETCH(int, ownIndent);
    ListDocument lists(formatOf(twoLevels()), 1, 1);
    QTextBlockFormat own = lists.format(0);
    own.setProperty(ownIndent, 7.0);
    QTextCursor(lists.block(0)).setBlockFormat(own);

    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
    own.setProperty(ORVRtfProperty::ListLevel, 1);
    QCOMPARE(lists.format(0).properties(), own.properties());
}

void TestTextListFormat::setBlockLevelWithoutSuchLevel_data()
{
    QTest::addColumn<QTextFormat>("format");
    QTest::addColumn<int>("level");

    QTest::newRow("level beyond the last") << QTextFormat(formatOf(twoLevels())) << 2;
    QTest::newRow("largest level") << QTextFormat(formatOf(twoLevels())) << std::numeric_limits<int>::max();
    QTest::newRow("no levels") << QTextFormat(QTextListFormat()) << 0;
    QTextListFormat stock;
    stock.setStyle(QTextListFormat::ListDisc);
    QTest::newRow("stock style, which Qt indents") << QTextFormat(stock) << 0;
}

void TestTextListFormat::setBlockLevelWithoutSuchLevel()
{
    QFETCH(QTextFormat, format);
    QFETCH(int, level);
    ListDocument lists(format.toListFormat(), 1, 1);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), level);
    QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(0)), level);
    QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::LeftIndent));
    QVERIFY(!lists.format(0).hasProperty(QTextFormat::TextIndent));
}

void TestTextListFormat::setBlockLevelKeepsMembershipAndFormat()
{
    ListDocument lists(formatOf(twoLevels()), 3, 3);
    QTextBlockFormat centred = lists.format(1);
    centred.setAlignment(Qt::AlignHCenter);
    QTextCursor(lists.block(1)).setBlockFormat(centred);

    ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
    QCOMPARE(lists.list->count(), 3);
    QCOMPARE(lists.block(1).textList(), lists.list);
    QCOMPARE(int(lists.format(1).alignment()), int(Qt::AlignHCenter));
}

void TestTextListFormat::setBlockLevelOfStrangerDoesNothing()
{
    ListDocument lists(formatOf(twoLevels()), 1, 2);
    ORVTextListFormat::setBlockLevel(nullptr, lists.block(0), 1);
    ORVTextListFormat::setBlockLevel(lists.list, QTextBlock(), 1);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
    QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::ListLevel));
    QVERIFY(lists.format(1).properties().isEmpty());
}

void TestTextListFormat::sameLevelAgainChangesNothing()
{
    ListDocument lists(formatOf(twoLevels()), 1, 1);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
    const int revision = lists.document.revision();
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
    QCOMPARE(lists.document.revision(), revision);
    ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 0);
    QVERIFY(lists.document.revision() != revision);
}

QTEST_GUILESS_MAIN(TestTextListFormat)
#include "tst_textlistformat.moc"
