#include "testsupport.h"

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
    return {makeLevel(ORVTextListLevel::Decimal, "%0."_s, 36, 18),
            makeLevel(ORVTextListLevel::LowerLetter, "%1.%0)"_s, 72.5, 54.25)};
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
    void levelDefaults()
    {
        const ORVTextListLevel level;
        QCOMPARE(level.text(), QString());
        QCOMPARE(level.kind(), unsigned(ORVTextListLevel::Decimal));
        QCOMPARE(level.indent(), 0.0);
        QCOMPARE(level.firstLinePosition(), 0.0);
    }

    void levelsCompareByAllFields()
    {
        const ORVTextListLevel level = makeLevel(ORVTextListLevel::UpperRoman, "%0"_s, 10, 20);
        QVERIFY(level == makeLevel(ORVTextListLevel::UpperRoman, "%0"_s, 10, 20));
        QVERIFY(level != makeLevel(ORVTextListLevel::LowerRoman, "%0"_s, 10, 20));
        QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, "%0."_s, 10, 20));
        QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, "%0"_s, 11, 20));
        QVERIFY(level != makeLevel(ORVTextListLevel::UpperRoman, "%0"_s, 10, 21));
    }

    ORV_ROWS(storedLevelsComeBack)
    {
        const Rows add([](const QList<ORVTextListLevel>& levels) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::ListUpperAlpha);
            ORVTextListFormat::setLevels(format, levels);
            QVERIFY(ORVTextListFormat::levels(format) == levels);
        });
        add("default level", {ORVTextListLevel()});
        add("two levels", twoLevels());
        QList<ORVTextListLevel> nine;
        for (int i = 0; i < 9; ++i)
            nine << makeLevel(unsigned(i % 6), "%%1"_s.arg(i), 36.0 * i, 36.0 * i - 18);
        add("nine levels", nine);
        add("unknown kind", {makeLevel(4000000000u, "%0"_s)});
        add("fractions and negative numbers", {makeLevel(1, "%0"_s, 1.0 / 3, -0.1)});
        const QChar odd[] = {QChar(0xd800), QChar(0), QChar('\n'), QChar(0xf0b7), QChar(' '), QChar(0x2022)};
        add("any characters", {makeLevel(0, QString(odd, 6))});
    }

    void storedLevelsSurviveInDocument()
    {
        ListDocument original(formatOf(twoLevels()), 2, 3);
        QVERIFY(ORVTextListFormat::levels(original.list->format()) == twoLevels());
        const QScopedPointer<QTextDocument> copy(original.document.clone());
        QVERIFY(copy->begin().textList());
        QVERIFY(ORVTextListFormat::levels(copy->begin().textList()->format()) == twoLevels());
    }

    void equalLevelsGiveEqualFormats()
    {
        QVERIFY(formatOf(twoLevels()) == formatOf(twoLevels()));
        QVERIFY(formatOf(twoLevels()) != formatOf(twoLevels().mid(0, 1)));
    }

    void noLevelsRemoveStoredOnes()
    {
        QTextListFormat format = formatOf({makeLevel(ORVTextListLevel::LowerRoman, "(%0)"_s, 99, 9)});
        ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>());
        const QList<ORVTextListLevel> derived = {makeLevel(ORVTextListLevel::LowerRoman, "(%0)"_s, 30, 30)};
        QVERIFY(ORVTextListFormat::levels(format) == derived);
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
        QVERIFY(ORVTextListFormat::levels(format) == twoLevels().mid(0, 1));
    }

    void firstLevelPicksMarker_data()
    {
        const Columns<unsigned, QString, int, QString, QString> row("kind", "text", "style", "prefix",
                                                                    "suffix");
        typedef ORVTextListLevel Level;
        typedef QTextListFormat Format;

        const QLatin1String plain("%0.");
        row("decimal", Level::Decimal, plain, Format::ListDecimal, "", ".");
        row("lower letter", Level::LowerLetter, plain, Format::ListLowerAlpha, "", ".");
        row("upper letter", Level::UpperLetter, plain, Format::ListUpperAlpha, "", ".");
        row("lower roman", Level::LowerRoman, plain, Format::ListLowerRoman, "", ".");
        row("upper roman", Level::UpperRoman, plain, Format::ListUpperRoman, "", ".");
        row("unknown kind", 6, plain, Format::ListDecimal, "", ".");
        row("text on both sides", Level::Decimal, "(%0)", Format::ListDecimal, "(", ")");
        row("words", Level::UpperRoman, "Part %0: ", Format::ListUpperRoman, "Part ", ": ");

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
        row("bullet with blanks around it", Level::Bullet, " o ", Format::ListCircle, nullptr, nullptr);
        row("bullet without marker", Level::Bullet, QString(), Format::ListDisc, nullptr, nullptr);
        row("bullet with a placeholder", Level::Bullet, "(%0)", Format::ListDisc, nullptr, nullptr);
    }

    // A null prefix or suffix stands for a property that is absent.
    void firstLevelPicksMarker()
    {
        FETCH(unsigned, kind, QString, text, QString, prefix, QString, suffix);
        QTextListFormat format;
        format.setNumberPrefix("old"_s);
        format.setNumberSuffix("old"_s);
        ORVTextListFormat::setLevels(format,
                                     {makeLevel(kind, text), makeLevel(ORVTextListLevel::Decimal, "<%0>"_s)});
        QTEST(int(format.style()), "style");
        QCOMPARE(format.hasProperty(QTextFormat::ListNumberPrefix), !prefix.isNull());
        QCOMPARE(format.hasProperty(QTextFormat::ListNumberSuffix), !suffix.isNull());
        QCOMPARE(format.numberPrefix(), prefix);
        QCOMPARE(format.numberSuffix(), suffix);
    }

    ORV_ROWS(markerIsShownByQt)
    {
        const Rows add([](const QString& text, const QString& shown) {
            const ListDocument lists(formatOf({makeLevel(ORVTextListLevel::LowerRoman, text)}), 2, 2);
            QCOMPARE(lists.list->itemText(lists.block(1)), shown);
        });
        add("with point", "%0.", "ii.");
        add("in brackets", "[%0]", "[ii]");
        add("number alone", "%0", "ii");
        add("no number", "Note", "ii.");
        add("empty", "", "ii.");
    }

    void setLevelsKeepsIndentOfFormat()
    {
        QTextListFormat format;
        format.setIndent(4);
        ORVTextListFormat::setLevels(format, twoLevels());
        QCOMPARE(format.indent(), 4);
    }

    void levelOfStockStyle_data()
    {
        const Columns<int, QString, QString, unsigned, QString> row("style", "prefix", "suffix", "kind",
                                                                    "text");
        typedef ORVTextListLevel Level;
        typedef QTextListFormat Format;
        const QLatin1String plain("%0.");
        row("disc", Format::ListDisc, nullptr, nullptr, Level::Bullet, QString(QChar(0x2022)));
        row("circle", Format::ListCircle, nullptr, nullptr, Level::Bullet, QString(QChar(0x25e6)));
        row("square", Format::ListSquare, nullptr, nullptr, Level::Bullet, QString(QChar(0x25aa)));
        row("decimal", Format::ListDecimal, nullptr, nullptr, Level::Decimal, plain);
        row("lower alpha", Format::ListLowerAlpha, nullptr, nullptr, Level::LowerLetter, plain);
        row("upper alpha", Format::ListUpperAlpha, nullptr, nullptr, Level::UpperLetter, plain);
        row("lower roman", Format::ListLowerRoman, nullptr, nullptr, Level::LowerRoman, plain);
        row("upper roman", Format::ListUpperRoman, nullptr, nullptr, Level::UpperRoman, plain);
        row("prefix and suffix", Format::ListDecimal, "(", ")", Level::Decimal, "(%0)"_s);
        row("prefix alone", Format::ListDecimal, "No. ", nullptr, Level::Decimal, "No. %0."_s);
        row("empty suffix", Format::ListDecimal, nullptr, "", Level::Decimal, "%0"_s);
        row("disc with suffix", Format::ListDisc, nullptr, ")", Level::Bullet, QString(QChar(0x2022)));
    }

    // A null prefix or suffix stands for one that is not set.
    void levelOfStockStyle()
    {
        FETCH(int, style, QString, prefix, QString, suffix, unsigned, kind, QString, text);
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

    void levelOfStockStyleHasIndentOfFormat()
    {
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDisc);
        format.setIndent(3);
        const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(format);
        QCOMPARE(levels.size(), 1);
        QCOMPARE(levels.first().indent(), 90.0);
        QCOMPARE(levels.first().firstLinePosition(), 90.0);
    }

    ORV_ROWS(noLevelsWithoutStyle)
    {
        const Rows add([](int style) {
            QTextListFormat format;
            QVERIFY(ORVTextListFormat::levels(format).isEmpty());
            format.setProperty(QTextFormat::ListStyle, style);
            QVERIFY(ORVTextListFormat::levels(format).isEmpty());
        });
        add("undefined", 0);
        add("unknown", -9);
        add("positive", 3);
    }

    void blockLevelIsStored()
    {
        ListDocument lists(formatOf(twoLevels()), 2, 2);
        QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(1)), 0);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
        QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(1)), 1);
        QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(0)), 0);
        QVERIFY(lists.format(1).property(ORVRtfProperty::ListLevel) == QVariant(1));
    }

    void blockLevelOfStranger()
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

    void negativeLevelCountsAsZero()
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

    void setBlockLevelGivesIndents()
    {
        ListDocument lists(formatOf(twoLevels()), 2, 2);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 0);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
        QVERIFY(lists.format(0).property(ORVRtfProperty::LeftIndent) == QVariant(36.0));
        QVERIFY(lists.format(0).property(QTextFormat::TextIndent) == QVariant(18.0));
        QVERIFY(lists.format(1).property(ORVRtfProperty::LeftIndent) == QVariant(72.5));
        QVERIFY(lists.format(1).property(QTextFormat::TextIndent) == QVariant(54.25));
    }

    ORV_ROWS(setBlockLevelKeepsIndentsOfBlock)
    {
        const Rows add([](int ownIndent) {
            ListDocument lists(formatOf(twoLevels()), 1, 1);
            QTextBlockFormat own = lists.format(0);
            own.setProperty(ownIndent, 7.0);
            QTextCursor(lists.block(0)).setBlockFormat(own);
            ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
            own.setProperty(ORVRtfProperty::ListLevel, 1);
            QCOMPARE(lists.format(0).properties(), own.properties());
        });
        add("left indent", int(ORVRtfProperty::LeftIndent));
        add("first line", int(QTextFormat::TextIndent));
    }

    ORV_ROWS(setBlockLevelWithoutSuchLevel)
    {
        const Rows add([](const QTextFormat& format, int level) {
            ListDocument lists(format.toListFormat(), 1, 1);
            ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), level);
            QCOMPARE(ORVTextListFormat::blockLevel(lists.list, lists.block(0)), level);
            QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::LeftIndent));
            QVERIFY(!lists.format(0).hasProperty(QTextFormat::TextIndent));
        });
        add("level beyond the last", QTextFormat(formatOf(twoLevels())), 2);
        add("largest level", QTextFormat(formatOf(twoLevels())), std::numeric_limits<int>::max());
        add("no levels", QTextFormat(QTextListFormat()), 0);
        QTextListFormat stock;
        stock.setStyle(QTextListFormat::ListDisc);
        add("stock style, which Qt indents", QTextFormat(stock), 0);
    }

    void setBlockLevelKeepsMembershipAndFormat()
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

    void setBlockLevelOfStrangerDoesNothing()
    {
        ListDocument lists(formatOf(twoLevels()), 1, 2);
        ORVTextListFormat::setBlockLevel(nullptr, lists.block(0), 1);
        ORVTextListFormat::setBlockLevel(lists.list, QTextBlock(), 1);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(1), 1);
        QVERIFY(!lists.format(0).hasProperty(ORVRtfProperty::ListLevel));
        QVERIFY(lists.format(1).properties().isEmpty());
    }

    void sameLevelAgainChangesNothing()
    {
        ListDocument lists(formatOf(twoLevels()), 1, 1);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
        const int revision = lists.document.revision();
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 1);
        QCOMPARE(lists.document.revision(), revision);
        ORVTextListFormat::setBlockLevel(lists.list, lists.block(0), 0);
        QVERIFY(lists.document.revision() != revision);
    }
};

ORV_TEST("textlistformat", TestTextListFormat, QCoreApplication)
#include "textlistformat.moc"
