#include "ORVRtfListItemText_p.h"
#include "writerhelpers.h"

using namespace rtftest;

typedef QList<ORVTextListLevel> Levels;

namespace {

/*! A list level as it is written; its text and numbers are given as written, without their ";". */
QByteArray levelGroup(int kind, const QByteArray& text, const QByteArray& numbers,
                      const QByteArray& indents = "\\fi0\\li0\\lin0", const QByteArray& format = "\\f0\\fs24")
{
    const QByteArray number = QByteArray::number(kind);
    return "\n{\\listlevel\\levelnfc" + number + "\\levelnfcn" + number
        + "\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat1\\levelspace360\\levelindent0{\\leveltext "
        + text + ";}{\\levelnumbers " + numbers + ";}" + format + indents + "}";
}

QByteArray listGroup(int number, const QByteArray& levels)
{
    const QByteArray n = QByteArray::number(number);
    return "\n{\\list\\listtemplateid" + n + "\\listhybrid" + levels + "{\\listname ;}\\listid" + n + "}";
}

/*! Both tables, for \a count lists whose groups are \a lists. */
QByteArray tables(const QByteArray& lists, int count = 1)
{
    QByteArray overrides;
    for (int i = 1; i <= count; ++i) {
        const QByteArray n = QByteArray::number(i);
        overrides += "{\\listoverride\\listid" + n + "\\listoverridecount0\\ls" + n + "}";
    }
    return "{\\*\\listtable" + lists + "}\n{\\*\\listoverridetable" + overrides + "}\n";
}

/*! What is written between the colour table and the document settings. */
QByteArray tablesOf(const QByteArray& rtf)
{
    const int colors = rtf.indexOf("{\\colortbl;");
    const int begin = rtf.indexOf("}\n", colors) + 2;
    return rtf.mid(begin, rtf.indexOf("\\paperw") - begin);
}

QSharedPointer<QTextDocument> listDocument(const QTextListFormat& format)
{
    const QSharedPointer<QTextDocument> document = textDocument("Item");
    QTextCursor(document.data()).createList(format);
    return document;
}

} // namespace

class TestWriterLists : public QObject {
    Q_OBJECT

private slots:
    void documentWithoutListsHasNoTables()
    {
        const QByteArray rtf = write(*textDocument("Item"));
        QCOMPARE(tablesOf(rtf), QByteArray());
        QVERIFY(!rtf.contains("\\list"));
    }

    ORV_ROWS(levels)
    {
        const Rows add([](const QTextListFormat& format, const QByteArray& groups) {
            QCOMPARE(tablesOf(write(*listDocument(format))), tables(listGroup(1, groups)));
        });
        add("none", QTextListFormat(), levelGroup(0, "\\'00", ""));
        const QTextListFormat roman = with(QTextListFormat(),
                                           {{QTextFormat::ListStyle, QTextListFormat::ListUpperRoman},
                                            {QTextFormat::ListIndent, 2},
                                            {QTextFormat::ListNumberPrefix, "<"_s},
                                            {QTextFormat::ListNumberSuffix, ">"_s}});
        add("stock style", roman, levelGroup(1, "\\'03<\\'00>", "\\'02", "\\fi0\\li1200\\lin1200"));

        const auto addLevels = [&add](const char* name, const Levels& levels, const QByteArray& groups) {
            add(name, listFormatWith(levels), groups);
        };
        const unsigned decimal = ORVTextListLevel::Decimal;
        addLevels("bulletedList", {makeLevel(ORVTextListLevel::Bullet, QString(QChar(0x2022)), 36, 18)},
                  levelGroup(23, "\\'01" + preamble() + "\\u8226\\'95", "", "\\fi-360\\li720\\lin720"));
        addLevels("placeholdersOfDeeperLevels",
                  {makeLevel(decimal, "%0."), makeLevel(ORVTextListLevel::LowerLetter, "%1.%0"),
                   makeLevel(decimal, "%2.%1.%0")},
                  levelGroup(0, "\\'02\\'00.", "\\'01") + levelGroup(4, "\\'03\\'00.\\'01", "\\'01\\'03")
                      + levelGroup(0, "\\'05\\'00.\\'01.\\'02", "\\'01\\'03\\'05"));
        addLevels("numbersAboveTheTopmostLevel", {makeLevel(decimal, "%0"), makeLevel(decimal, "%5%0")},
                  levelGroup(0, "\\'01\\'00", "\\'01") + levelGroup(0, "\\'02\\'00\\'01", "\\'01\\'02"));

        const auto addKind = [&addLevels](const char* name, unsigned kind, int written) {
            addLevels(name, {makeLevel(kind, "%0")}, levelGroup(written, "\\'01\\'00", "\\'01"));
        };
        addKind("levelKinds: bullet", 0, 23);
        addKind("levelKinds: decimal", 1, 0);
        addKind("levelKinds: lowerLetter", 2, 4);
        addKind("levelKinds: upperLetter", 3, 3);
        addKind("levelKinds: lowerRoman", 4, 2);
        addKind("levelKinds: upperRoman", 5, 1);
        addKind("levelKinds: unknown", 6, 0);
        addKind("levelKinds: farOff", 4294967295u, 0);

        const auto addIndent = [&addLevels](const char* name, double indent, double firstLine,
                                            const QByteArray& written) {
            addLevels(name, {makeLevel(ORVTextListLevel::Decimal, "%0", indent, firstLine)},
                      levelGroup(0, "\\'01\\'00", "\\'01", written));
        };
        addIndent("levelIndents: hanging", 36.0, 18.0, "\\fi-360\\li720\\lin720");
        addIndent("levelIndents: indented", 18.0, 36.0, "\\fi360\\li360\\lin360");
        addIndent("levelIndents: flush", 36.0, 36.0, "\\fi0\\li720\\lin720");
        addIndent("levelIndents: negative", -18.0, -36.0, "\\fi-360\\li-360\\lin-360");
        addIndent("levelIndents: twipsAreCut", 36.04, 18.02, "\\fi-360\\li720\\lin720");
        addIndent("levelIndents: binaryFraction", 35.99999998, 0.0, "\\fi-720\\li720\\lin720");

        Levels nine;
        QByteArray eight;
        for (int i = 0; i < 9; ++i) {
            nine << makeLevel(decimal, "%0", 36 * (i + 1), 36 * (i + 1));
            const QByteArray twips = QByteArray::number(720 * (i + 1));
            const QByteArray code = "\\'0" + QByteArray::number(i);
            if (i < 8)
                eight += levelGroup(0, "\\'01" + code, "\\'01", "\\fi0\\li" + twips + "\\lin" + twips);
        }
        addLevels("listOfNineLevelsHasEight", nine, eight);

        const auto addText = [&](const char* name, const QString& text, const QByteArray& written,
                                 const QByteArray& numbers) {
            addLevels(name, {makeLevel(decimal, text)}, levelGroup(0, written, numbers));
        };
        addText("number", "%0", "\\'01\\'00", "\\'01");
        addText("numberPoint", "%0.", "\\'02\\'00.", "\\'01");
        addText("inBrackets", "(%0)", "\\'03(\\'00)", "\\'02");
        addText("twice", "%0-%0", "\\'03\\'00-\\'00", "\\'01\\'03");
        addText("empty", QString(), "\\'00", QByteArray());
        addText("words", "Part %0", "\\'06Part \\'00", "\\'06");
        addText("percentSign", "%0%", "\\'02\\'00%", "\\'01");
        addText("percentLetter", "%x", "\\'02%x", QByteArray());
        addText("levelAboveTheTop", "%3.", "\\'02\\'00.", "\\'01");
        addText("severalDigits", "%12.", "\\'02\\'00.", "\\'01");
        addText("braces", "{%0}", "\\'03\\{\\'00\\}", "\\'02");
        addText("backslash", "\\%0", "\\'02\\\\\\'00", "\\'02");
        addText("tab", "%0\t", "\\'02\\'00\\'09", "\\'01");
        addText("enDash", QString(QChar(0x2013)), "\\'01" + preamble() + "\\u8211\\'96", QByteArray());
        addText("noBreakSpace", QString(QChar(0xa0)), "\\'01" + preamble() + "\\u160\\'A0", QByteArray());
        const QString z(91, QLatin1Char('z'));
        const QByteArray zs(91, 'z');
        addText("lengthBelowBackslash", z, "[" + zs, QByteArray());
        addText("lengthOfBackslash", z + 'z', "\\\\" + zs + "z", QByteArray());
        addText("lengthOfOpenBrace", QString(123, QLatin1Char('z')), "\\{" + QByteArray(123, 'z'),
                QByteArray());
        addText("lengthOfClosingBrace", QString(125, QLatin1Char('z')), "\\}" + QByteArray(125, 'z'),
                QByteArray());
        addText("positionOfABrace", QString(122, QLatin1Char('z')) + "%0",
                "\\{" + QByteArray(122, 'z') + "\\'00", "\\{");
    }

    void levelHasTheFormatOfTheFirstItem()
    {
        const QSharedPointer<QTextDocument> document =
            listDocument(listFormatWith({makeLevel(ORVTextListLevel::Decimal, "%0")}));
        QTextCursor(document.data()).setBlockCharFormat(bold(foreground(Qt::red)));
        // Black and white are colours 1 and 2.
        QCOMPARE(tablesOf(write(*document)),
                 tables(listGroup(
                     1, levelGroup(0, "\\'01\\'00", "\\'01", "\\fi0\\li0\\lin0", "\\f0\\fs24\\b1\\cf3"))));
    }

    void listsAreNumberedInOrderOfAppearance()
    {
        const QSharedPointer<QTextDocument> document = textDocument("One\nTwo");
        QTextCursor cursor(document->lastBlock());
        // Made first, but stands second.
        cursor.createList(listFormatWith({makeLevel(ORVTextListLevel::LowerLetter, "%0)")}));
        QTextCursor(document->begin())
            .createList(listFormatWith({makeLevel(ORVTextListLevel::Decimal, "%0.")}));
        const QByteArray rtf = write(*document);
        QCOMPARE(tablesOf(rtf),
                 tables(listGroup(1, levelGroup(0, "\\'02\\'00.", "\\'01"))
                            + listGroup(2, levelGroup(4, "\\'02\\'00)", "\\'01")),
                        2));
        QVERIFY(rtf.indexOf("\\ls1\\ilvl0") < rtf.indexOf("\\ls2\\ilvl0"));
    }

    void listIsWrittenOnceForAllItems()
    {
        const QSharedPointer<QTextDocument> document =
            listDocument(listFormatWith({makeLevel(ORVTextListLevel::Decimal, "%0.")}));
        QTextList* list = document->begin().textList();
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("\nItem\nItem\nItem");
        QCOMPARE(list->count(), 4);
        QCOMPARE(tablesOf(write(*document)), tables(listGroup(1, levelGroup(0, "\\'02\\'00.", "\\'01"))));
    }

    void itemsNameTheirListAndLevel()
    {
        const Levels levels = {makeLevel(ORVTextListLevel::Decimal, "%0.", 18, 18),
                               makeLevel(ORVTextListLevel::Decimal, "%1.%0.", 36, 36)};
        const QSharedPointer<QTextDocument> document = listDocument(listFormatWith(levels));
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("\nSub");
        QTextList* list = document->begin().textList();
        ORVTextListFormat::setBlockLevel(list, document->begin(), 0);
        ORVTextListFormat::setBlockLevel(list, cursor.block(), 1);
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.startsWith("\n\\pard\\plain \\li360\\ltrch\\loch \\ls1\\ilvl0{\\listtext"),
                 body.constData());
        ORV_CONTAINS(body, "\n\\par\\pard\\plain \\li720\\ltrch\\loch \\ls1\\ilvl1{\\listtext");
    }

    ORV_ROWS(itemText)
    {
        const Rows add([](int style, int number, const QString& text) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::Style(style));
            QCOMPARE(ORVRtfListItemText::itemText(format, number, false), text);
        });
        add("decimal 1", QTextListFormat::ListDecimal, 1, "1.");
        add("decimal 20000", QTextListFormat::ListDecimal, 20000, "20000.");
        add("letter 26", QTextListFormat::ListLowerAlpha, 26, "z.");
        add("letter 27", QTextListFormat::ListLowerAlpha, 27, "aa.");
        add("letter 52", QTextListFormat::ListUpperAlpha, 52, "AZ.");
        add("letter 53", QTextListFormat::ListUpperAlpha, 53, "BA.");
        add("letter 702", QTextListFormat::ListLowerAlpha, 702, "zz.");
        add("letter 703", QTextListFormat::ListLowerAlpha, 703, "aaa.");
        add("roman 4", QTextListFormat::ListLowerRoman, 4, "iv.");
        add("roman 1999", QTextListFormat::ListUpperRoman, 1999, "MCMXCIX.");
        add("roman 4999", QTextListFormat::ListUpperRoman, 4999, "MMMMCMXCIX.");
        add("roman 5000", QTextListFormat::ListLowerRoman, 5000, "?.");
        add("disc", QTextListFormat::ListDisc, 3, ".");
        add("no style", QTextListFormat::ListStyleUndefined, 3, ".");
    }

    /*! The text of an item must be what Qt's own list gives. */
    ORV_ROWS(itemTextAgreesWithQt)
    {
        const Rows add([](int style, bool surrounded, bool rightToLeft) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::Style(style));
            if (surrounded) {
                format.setNumberPrefix("(");
                format.setNumberSuffix(")");
            }
            QTextDocument document;
            QTextCursor cursor(&document);
            cursor.setBlockFormat(blockFormat(
                {{QTextFormat::LayoutDirection, rightToLeft ? Qt::RightToLeft : Qt::LeftToRight}}));
            QTextList* const list = cursor.createList(format);
            for (int i = 1; i < 150; ++i)
                cursor.insertBlock();
            QCOMPARE(list->count(), 150);
            for (int i = 0; i < list->count(); ++i)
                QCOMPARE(ORVRtfListItemText::itemText(list->format(), i + 1,
                                                      list->item(i).textDirection() == Qt::RightToLeft),
                         list->itemText(list->item(i)));
        });
        for (int style = QTextListFormat::ListUpperRoman; style <= QTextListFormat::ListStyleUndefined;
             ++style) {
            const QByteArray name = "style " + QByteArray::number(style);
            add(name, style, false, false);
            add(name + ", surrounded", style, true, false);
            add(name + ", right to left", style, false, true);
            add(name + ", surrounded, right to left", style, true, true);
        }
    }
};

ORV_TEST("writer_lists", TestWriterLists, QGuiApplication)
#include "lists.moc"
