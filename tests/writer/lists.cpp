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

/*! A paragraph for each of \a itemLevels, in a QTextList of its own; the first level begins behind \a before. */
QTextDocument* separatedLevels(const QList<int>& itemLevels, int before)
{
    Levels levels = {makeLevel(ORVTextListLevel::Decimal, "%0."_s),
                     makeLevel(ORVTextListLevel::LowerLetter, "%0)"_s)};
    levels[0].setStart(before + 1);
    QTextDocument* const document = new QTextDocument;
    QTextCursor cursor(document);
    for (const int level : itemLevels) {
        if (cursor.position() > 0)
            cursor.insertBlock(QTextBlockFormat());
        cursor.insertText("x"_s);
        QTextListFormat format = listFormatWith(levels);
        ORVTextListFormat::setShownLevel(format, level, levels.at(level).text(), 1);
        cursor.createList(format);
    }
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

    void markersOfALevel()
    {
        ORVTextListLevel level = makeLevel(ORVTextListLevel::Decimal, "%0."_s);
        level.setStart(5);
        level.setFollow(ORVTextListLevel::Space);
        level.setJustification(ORVTextListLevel::Right);
        const QByteArray rtf = write(*listDocument(listFormatWith({level})));
        ORV_CONTAINS(rtf, "\\leveljc2\\leveljcn2\\levelfollow1\\levelstartat5");
    }

    void levelsOfSeveralTextListsAreOneList()
    {
        const QScopedPointer<QTextDocument> document(separatedLevels({0, 1, 1, 0, 1}, 3));
        const QByteArray rtf = write(*document);
        QCOMPARE(rtf.count("{\\list\\"), 1);
        QCOMPARE(rtf.count("{\\listlevel"), 2);
        QCOMPARE(rtf.count("\\ls1\\ilvl0{\\listtext"), 2);
        QCOMPARE(rtf.count("\\ls1\\ilvl1{\\listtext"), 3);
        QCOMPARE(rtf.count("\\ls2"), 0);
        const char* const labels[] = {"4.", "a)", "b)", "5.", "a)"};
        int from = 0;
        for (const char* const label : labels) {
            from = rtf.indexOf("{\\listtext", from) + 1;
            QVERIFY2(from > 0, label);
            const QByteArray text = rtf.mid(from, rtf.indexOf('}', from) - from);
            QVERIFY2(text.contains(QByteArray(" ") + label), text.constData());
        }
    }

    void listsOfOtherNumbersAreOtherLists()
    {
        const QScopedPointer<QTextDocument> document(separatedLevels({0, 0}, 1));
        QTextBlockFormat format = document->lastBlock().blockFormat();
        format.setProperty(ORVRtfProperty::ListOverride, 9);
        QTextCursor(document->lastBlock()).setBlockFormat(format);
        QCOMPARE(write(*document).count("{\\list\\"), 2);
    }

    void levelsOfNotesAreOtherLists()
    {
        const QScopedPointer<QTextDocument> note(separatedLevels({0, 1}, 1));
        const QScopedPointer<QTextDocument> document(separatedLevels({0, 1}, 1));
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::FootnoteAnchor, true);
        format.setProperty(ORVRtfProperty::HasNoteContent, true);
        format.setProperty(ORVRtfProperty::NoteContent, write(*note));
        QTextCursor(document.data()).insertText("1"_s, format);
        const QByteArray rtf = write(*document);
        QCOMPARE(rtf.count("{\\list\\"), 2);
        ORV_CONTAINS(rtf, "\\ls2\\ilvl1");
    }
};

ORV_TEST("writer_lists", TestWriterLists, QGuiApplication)
#include "lists.moc"
