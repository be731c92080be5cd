#include "testsupport.h"

using rtftest::listFormatWith;
using rtftest::makeLevel;

typedef ORVTextListLevel Level;

namespace {

QList<ORVTextListLevel> levelsOf(const QTextListFormat& format)
{
    return ORVTextListFormat::levels(format);
}

QList<ORVTextListLevel> twoLevels()
{
    return {makeLevel(ORVTextListLevel::Decimal, "%0."_s, 36, 18),
            makeLevel(ORVTextListLevel::LowerLetter, "%1.%0)"_s, 72.5, 54.25)};
}

/*! A document of that many paragraphs, of which the first are items of one list. */
class ListDocument {
public:
    ListDocument(const QTextListFormat& format, int items, int paragraphs)
        : document("text\n"_s.repeated(paragraphs - 1))
    {
        list = QTextCursor(document.begin()).createList(format);
        for (int i = 1; i < items; ++i)
            list->add(block(i));
    }

    QTextBlock block(int number) const { return document.findBlockByNumber(number); }
    QTextBlockFormat format(int number) const { return block(number).blockFormat(); }
    QVariant property(int number, int id) const { return format(number).property(id); }
    void setProperty(int number, int id, const QVariant& value) const
    {
        QTextCursor(block(number)).setBlockFormat(rtftest::with(format(number), {{id, value}}));
    }
    int level(int number) const { return ORVTextListFormat::blockLevel(list, block(number)); }
    void setLevel(int number, int level) const
    {
        ORVTextListFormat::setBlockLevel(list, block(number), level);
    }

    QTextDocument document;
    QTextList* list;
};

} // namespace

class TestTextListFormat : public QObject {
    Q_OBJECT

private slots:
    void levelDefaults()
    {
        const Level level;
        QCOMPARE(level.text(), QString());
        QCOMPARE(level.kind(), unsigned(Level::Decimal));
        QCOMPARE(level.indent(), 0.0);
        QCOMPARE(level.firstLinePosition(), 0.0);
        QCOMPARE(level.start(), 1);
        QCOMPARE(level.follow(), Level::Tab);
        QCOMPARE(level.justification(), Level::Left);
    }

    void levelsCompareByAllFields()
    {
        const Level level = makeLevel(Level::UpperRoman, "%0"_s, 10, 20);
        QVERIFY(level == makeLevel(Level::UpperRoman, "%0"_s, 10, 20));
        QVERIFY(level != makeLevel(Level::LowerRoman, "%0"_s, 10, 20));
        QVERIFY(level != makeLevel(Level::UpperRoman, "%0."_s, 10, 20));
        QVERIFY(level != makeLevel(Level::UpperRoman, "%0"_s, 11, 20));
        QVERIFY(level != makeLevel(Level::UpperRoman, "%0"_s, 10, 21));
        Level other = level;
        other.setStart(2);
        QVERIFY(level != other);
        other = level;
        other.setFollow(Level::Space);
        QVERIFY(level != other);
        other = level;
        other.setJustification(Level::Right);
        QVERIFY(level != other);
    }

    ORV_ROWS(storedLevelsComeBack)
    {
        const Rows add([](const QList<Level>& levels) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::ListUpperAlpha);
            ORVTextListFormat::setLevels(format, levels);
            QVERIFY(levelsOf(format) == levels);
            const ListDocument lists(format, 2, 3);
            QVERIFY(levelsOf(lists.list->format()) == levels);
            const QScopedPointer<QTextDocument> copy(lists.document.clone());
            QVERIFY(copy->begin().textList());
            QVERIFY(levelsOf(copy->begin().textList()->format()) == levels);
        });
        add("default level", {Level()});
        add("two levels", twoLevels());
        QList<Level> nine;
        for (int i = 0; i < 9; ++i)
            nine << makeLevel(unsigned(i % 6), "%%1"_s.arg(i), 36.0 * i, 36.0 * i - 18);
        add("nine levels", nine);
        add("unknown kind", {makeLevel(4000000000u, "%0"_s)});
        add("fractions and negative numbers", {makeLevel(1, "%0"_s, 1.0 / 3, -0.1)});
        QList<Level> starts = twoLevels();
        starts[0].setFollow(Level::Nothing);
        starts[1].setStart(-5);
        starts[1].setFollow(Level::Space);
        add("starts and follows", starts);
        starts[1].setJustification(Level::Center);
        add("justification", starts);
        const QChar odd[] = {QChar(0xd800), QChar(0), QChar('\n'), QChar(0xf0b7), QChar(' '), QChar(0x2022)};
        add("any characters", {makeLevel(0, QString(odd, 6))});
    }

    void equalLevelsGiveEqualFormats()
    {
        QVERIFY(listFormatWith(twoLevels()) == listFormatWith(twoLevels()));
        QVERIFY(listFormatWith(twoLevels()) != listFormatWith(twoLevels().mid(0, 1)));
    }

    void noLevelsRemoveStoredOnes()
    {
        QTextListFormat format = listFormatWith({makeLevel(Level::LowerRoman, "(%0)"_s, 99, 9)});
        ORVTextListFormat::setLevels(format, {});
        QVERIFY(levelsOf(format) == QList<Level>({makeLevel(Level::LowerRoman, "(%0)"_s, 30, 30)}));
    }

    // Files of the application hold this property, and must stay as they are.
    void defaultMarkersNeedNoPropertyOfTheirOwn()
    {
        const int added = listFormatWith(twoLevels()).propertyCount();
        QList<Level> levels = twoLevels();
        levels[1].setStart(2);
        QTextListFormat format = listFormatWith(levels);
        QCOMPARE(format.propertyCount(), added + 1);
        QCOMPARE(format.stringProperty(QTextFormat::UserProperty + 300),
                 listFormatWith(twoLevels()).stringProperty(QTextFormat::UserProperty + 300));
        ORVTextListFormat::setLevels(format, twoLevels());
        QCOMPARE(format.propertyCount(), added);
    }

    ORV_ROWS(damagedMarkers)
    {
        const Rows add([](const QString& text, int start, int follow) {
            QTextListFormat format = listFormatWith(twoLevels());
            format.setProperty(QTextFormat::UserProperty + 301, text);
            QCOMPARE(levelsOf(format).size(), 2);
            QCOMPARE(levelsOf(format).at(1).start(), start);
            QCOMPARE(int(levelsOf(format).at(1).follow()), follow);
        });
        add("whole", "1:0;4:2", 4, 2);
        add("empty", "", 1, 0);
        add("one level", "7:1", 1, 0);
        add("three levels", "1:0;4:2;9:1", 4, 2);
        add("start alone", "1:0;4", 4, 0);
        add("no numbers", "a:b;c:d", 1, 0);
        add("unknown follow", "1:0;4:9", 4, 0);
        add("unknown justification", "1:0;4:2:9", 4, 2);
    }

    void shownLevelPicksMarkerAndIndent()
    {
        QTextListFormat format = listFormatWith(twoLevels());
        QCOMPARE(ORVTextListFormat::shownLevel(format), -1);
        ORVTextListFormat::setShownLevel(format, 1, "3.%0)"_s, 1);
        QCOMPARE(ORVTextListFormat::shownLevel(format), 1);
        QVERIFY(levelsOf(format) == twoLevels());
        QCOMPARE(format.style(), QTextListFormat::ListLowerAlpha);
        QCOMPARE(format.numberPrefix(), "3."_s);
        QCOMPARE(format.numberSuffix(), ")"_s);
        QCOMPARE(format.indent(), 2);
        ORVTextListFormat::setLevels(format, twoLevels());
        QCOMPARE(ORVTextListFormat::shownLevel(format), -1);
    }

    void shownLevelWithoutMarkerIsNotSeen()
    {
        QTextListFormat format = listFormatWith({makeLevel(Level::Decimal, QString())});
        ORVTextListFormat::setShownLevel(format, 0, QString(), 1);
        QCOMPARE(format.style(), QTextListFormat::ListStyleUndefined);
    }

    ORV_ROWS(shownLevelMustBeStored)
    {
        const Rows add([](const QList<Level>& levels, int level) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::ListDecimal);
            ORVTextListFormat::setLevels(format, levels);
            const QTextListFormat before = format;
            ORVTextListFormat::setShownLevel(format, level, "%0"_s, 1);
            QCOMPARE(ORVTextListFormat::shownLevel(format), -1);
            QVERIFY(format == before);
        });
        add("negative", twoLevels(), -1);
        add("beyond the last", twoLevels(), 2);
        add("no levels", {}, 0);
    }

    // The property is part of a format that anybody may write to.
    void damagedLevelsAreLeftOut()
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
        QVERIFY(levelsOf(format) == twoLevels().mid(0, 1));
    }

    // A null prefix or suffix stands for a property that is absent.
    ORV_ROWS(firstLevelPicksMarker)
    {
        typedef QTextListFormat Format;
        const Rows add([](unsigned kind, const QString& text, Format::Style style, const QString& prefix,
                          const QString& suffix) {
            Format format;
            format.setIndent(4);
            format.setNumberPrefix("old"_s);
            format.setNumberSuffix("old"_s);
            ORVTextListFormat::setLevels(format,
                                         {makeLevel(kind, text), makeLevel(Level::Decimal, "<%0>"_s)});
            QCOMPARE(format.style(), style);
            QCOMPARE(format.hasProperty(QTextFormat::ListNumberPrefix), !prefix.isNull());
            QCOMPARE(format.hasProperty(QTextFormat::ListNumberSuffix), !suffix.isNull());
            QCOMPARE(format.numberPrefix(), prefix);
            QCOMPARE(format.numberSuffix(), suffix);
            QCOMPARE(format.indent(), 4);
        });
        add("decimal", Level::Decimal, "%0.", Format::ListDecimal, "", ".");
        add("lower letter", Level::LowerLetter, "%0.", Format::ListLowerAlpha, "", ".");
        add("upper letter", Level::UpperLetter, "%0.", Format::ListUpperAlpha, "", ".");
        add("lower roman", Level::LowerRoman, "%0.", Format::ListLowerRoman, "", ".");
        add("upper roman", Level::UpperRoman, "%0.", Format::ListUpperRoman, "", ".");
        add("unknown kind", 6, "%0.", Format::ListDecimal, "", ".");
        add("text on both sides", Level::Decimal, "(%0)", Format::ListDecimal, "(", ")");
        add("words", Level::UpperRoman, "Part %0: ", Format::ListUpperRoman, "Part ", ": ");
        const auto addBullet = [&add](const char* name, const QString& marker, Format::Style style) {
            add(name, Level::Bullet, marker, style, QString(), QString());
        };
        addBullet("bullet", QChar(0x2022), Format::ListDisc);
        addBullet("bullet of the Symbol font", QChar(0xf0b7), Format::ListDisc);
        addBullet("dash", "-"_s, Format::ListDisc);
        addBullet("white bullet", QChar(0x25e6), Format::ListCircle);
        addBullet("o of Courier New", "o"_s, Format::ListCircle);
        addBullet("small square", QChar(0x25aa), Format::ListSquare);
        addBullet("square", QChar(0x25a0), Format::ListSquare);
        addBullet("section sign, a square in Wingdings", QChar(0xa7), Format::ListSquare);
        addBullet("square of Wingdings in the private use area", QChar(0xf0a7), Format::ListSquare);
        addBullet("bullet with blanks around it", " o "_s, Format::ListCircle);
        addBullet("bullet without marker", QString(), Format::ListDisc);
        addBullet("bullet with a placeholder", "(%0)"_s, Format::ListDisc);
    }

    ORV_ROWS(markerIsShownByQt)
    {
        const Rows add([](const QString& text, const QString& shown) {
            const ListDocument lists(listFormatWith({makeLevel(Level::LowerRoman, text)}), 2, 2);
            QCOMPARE(lists.list->itemText(lists.block(1)), shown);
        });
        add("with point", "%0.", "ii.");
        add("in brackets", "[%0]", "[ii]");
        add("number alone", "%0", "ii");
        add("no number", "Note", "ii.");
        add("empty", "", "ii.");
    }

    // A null prefix or suffix stands for one that is not set.
    ORV_ROWS(levelOfStockStyle)
    {
        typedef QTextListFormat Format;
        const Rows add([](Format::Style style, const QString& prefix, const QString& suffix, unsigned kind,
                          const QString& text) {
            Format format;
            format.setStyle(style);
            format.setIndent(3);
            if (!prefix.isNull())
                format.setNumberPrefix(prefix);
            if (!suffix.isNull())
                format.setNumberSuffix(suffix);
            QVERIFY(levelsOf(format) == QList<Level>({makeLevel(kind, text, 90, 90)}));
        });
        const QString none;
        add("disc", Format::ListDisc, none, none, Level::Bullet, u8"\u2022");
        add("circle", Format::ListCircle, none, none, Level::Bullet, u8"\u25e6");
        add("square", Format::ListSquare, none, none, Level::Bullet, u8"\u25aa");
        add("decimal", Format::ListDecimal, none, none, Level::Decimal, "%0.");
        add("lower alpha", Format::ListLowerAlpha, none, none, Level::LowerLetter, "%0.");
        add("upper alpha", Format::ListUpperAlpha, none, none, Level::UpperLetter, "%0.");
        add("lower roman", Format::ListLowerRoman, none, none, Level::LowerRoman, "%0.");
        add("upper roman", Format::ListUpperRoman, none, none, Level::UpperRoman, "%0.");
        add("prefix and suffix", Format::ListDecimal, "(", ")", Level::Decimal, "(%0)");
        add("prefix alone", Format::ListDecimal, "No. ", none, Level::Decimal, "No. %0.");
        add("empty suffix", Format::ListDecimal, none, "", Level::Decimal, "%0");
        add("disc with suffix", Format::ListDisc, none, ")", Level::Bullet, u8"\u2022");
    }

    ORV_ROWS(noLevelsWithoutStyle)
    {
        const Rows add([](int style) {
            QTextListFormat format;
            QVERIFY(levelsOf(format).isEmpty());
            format.setProperty(QTextFormat::ListStyle, style);
            QVERIFY(levelsOf(format).isEmpty());
        });
        add("undefined", 0);
        add("unknown", -9);
        add("positive", 3);
    }

    void setBlockLevelStoresLevelAndIndents()
    {
        const ListDocument lists(listFormatWith(twoLevels()), 3, 3);
        QCOMPARE(lists.level(1), 0);
        lists.setProperty(1, QTextFormat::BlockAlignment, int(Qt::AlignHCenter));
        lists.setLevel(0, 0);
        lists.setLevel(1, 1);
        QCOMPARE(lists.level(0), 0);
        QCOMPARE(lists.level(1), 1);
        QCOMPARE(lists.property(1, ORVRtfProperty::ListLevel), QVariant(1));
        QCOMPARE(lists.property(0, ORVRtfProperty::LeftIndent), QVariant(36.0));
        QCOMPARE(lists.property(0, QTextFormat::TextIndent), QVariant(18.0));
        QCOMPARE(lists.property(1, ORVRtfProperty::LeftIndent), QVariant(72.5));
        QCOMPARE(lists.property(1, QTextFormat::TextIndent), QVariant(54.25));
        QCOMPARE(lists.list->count(), 3);
        QCOMPARE(lists.block(1).textList(), lists.list);
        QCOMPARE(int(lists.format(1).alignment()), int(Qt::AlignHCenter));
    }

    void blockLevelOfStranger()
    {
        const ListDocument lists(listFormatWith(twoLevels()), 2, 3);
        lists.setProperty(2, ORVRtfProperty::ListLevel, 5);
        QCOMPARE(lists.level(2), 0);
        lists.setLevel(1, 1);
        QCOMPARE(ORVTextListFormat::blockLevel(nullptr, lists.block(1)), 0);
        QCOMPARE(ORVTextListFormat::blockLevel(lists.list, QTextBlock()), 0);
        const ListDocument others(listFormatWith(twoLevels()), 2, 2);
        QCOMPARE(ORVTextListFormat::blockLevel(others.list, lists.block(1)), 0);
    }

    void negativeLevelCountsAsZero()
    {
        const ListDocument lists(listFormatWith(twoLevels()), 1, 1);
        lists.setLevel(0, -3);
        QCOMPARE(lists.property(0, ORVRtfProperty::ListLevel), QVariant(0));
        QCOMPARE(lists.property(0, ORVRtfProperty::LeftIndent), QVariant(36.0));
        lists.setProperty(0, ORVRtfProperty::ListLevel, -3);
        QCOMPARE(lists.level(0), 0);
    }

    ORV_ROWS(setBlockLevelKeepsIndentsOfBlock)
    {
        const Rows add([](int ownIndent) {
            const ListDocument lists(listFormatWith(twoLevels()), 1, 1);
            lists.setProperty(0, ownIndent, 7.0);
            const QTextBlockFormat before = lists.format(0);
            lists.setLevel(0, 1);
            QCOMPARE(lists.format(0).properties(),
                     rtftest::with(before, {{ORVRtfProperty::ListLevel, 1}}).properties());
        });
        add("left indent", int(ORVRtfProperty::LeftIndent));
        add("first line", int(QTextFormat::TextIndent));
    }

    ORV_ROWS(setBlockLevelWithoutSuchLevel)
    {
        const Rows add([](const QTextListFormat& format, int level) {
            const ListDocument lists(format, 1, 1);
            lists.setLevel(0, level);
            QCOMPARE(lists.level(0), level);
            QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::LeftIndent));
            QVERIFY(!lists.format(0).hasProperty(QTextFormat::TextIndent));
        });
        add("level beyond the last", listFormatWith(twoLevels()), 2);
        add("largest level", listFormatWith(twoLevels()), std::numeric_limits<int>::max());
        add("no levels", QTextListFormat(), 0);
        QTextListFormat stock;
        stock.setStyle(QTextListFormat::ListDisc);
        add("stock style, which Qt indents", stock, 0);
    }

    void setBlockLevelOfStrangerDoesNothing()
    {
        const ListDocument lists(listFormatWith(twoLevels()), 1, 2);
        ORVTextListFormat::setBlockLevel(nullptr, lists.block(0), 1);
        ORVTextListFormat::setBlockLevel(lists.list, QTextBlock(), 1);
        lists.setLevel(1, 1);
        QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::ListLevel));
        QVERIFY(lists.format(1).properties().isEmpty());
    }

    void sameLevelAgainChangesNothing()
    {
        const ListDocument lists(listFormatWith(twoLevels()), 1, 1);
        lists.setLevel(0, 1);
        const int revision = lists.document.revision();
        lists.setLevel(0, 1);
        QCOMPARE(lists.document.revision(), revision);
        lists.setLevel(0, 0);
        QVERIFY(lists.document.revision() != revision);
    }
};

ORV_TEST("textlistformat", TestTextListFormat, QCoreApplication)
#include "textlistformat.moc"
