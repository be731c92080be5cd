#include "testpaths.h"
#include "testsupport.h"

namespace {

QByteArray sampleData(const QString& name)
{
    QFile file(TEST_DATA_DIR "/%1.rtf"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

/*! The first paragraph that starts with \a text. */
QTextBlock blockStartingWith(const QTextDocument& document, const QString& text)
{
    QTextBlock block = document.begin();
    while (block.isValid() && !block.text().startsWith(text))
        block = block.next();
    return block;
}

QVariant solid(int red, int green, int blue)
{
    return QBrush(QColor(red, green, blue));
}

} // namespace

/*!
    Documents that word processors saved (see data/README.md). What is expected of them was taken from
    the RTF itself.
*/
class TestSamples : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(paragraphs)
    {
        const Rows add([this](const QString& name, const QString& text) {
            const QTextDocument& document = *sample(name).document;
            QVERIFY2(rtftest::textOf(document).split('\n').contains(text),
                     qPrintable(rtftest::textOf(document)));
        });
        add("format changes within words", "libreoffice-charformats",
            "Inside a word bold begins and ends, H2O and E=mc2.");
        add("hidden text is read", "libreoffice-charformats",
            "There is some hidden secret textnothing hidden in view.");
        add("tabs", "libreoffice-paragraphs", "left0\tcolumn envelope\tmiddle\tright0\t0.00");
        add("inserted text is read", "libreoffice-revisions",
            "Søren noticed the third blanket and listened. inserted words plough clever curtain kept. Her "
            "chapel lifted her kitchen almost; Søren translated her blanket among the apple trees.");
        add("deleted text is read", "libreoffice-revisions",
            "The apprentice wandered in silence, and Ilse and Jakob sang near the old quarry. deleted words "
            "ferry market foreignkept. Owen described the quiet painter near the old quarry — or so Jakob "
            "claimed.");
        add("results of fields", "libreoffice-links",
            "Page 1 of 2, figure 1. Anton noticed a faded letter among the apple trees.");
        add("bookmarks leave no text", "libreoffice-links",
            "Marked range quiet distant anchor watched unmarked. Élodie and Marta sang among the apple "
            "trees.");
        add("text of links", "pandoc-links",
            "Two adjacent links touching, then a link with bold and italic parts.");
        add("fallback of one letter", "pandoc-links",
            "Nobody remembered the distant staircase at the end of the corridor, and Lucía opened his "
            "careful workshop under the bridge. See the plain web link for more. Élodie mended the portrait "
            "and trembled — or so Owen claimed.");
        add("bullets as text", "pandoc-lists", "•\tThe heavy newspaper shivered before noon.");
        add("note in line", "libreoffice-notes",
            "A sudden violin trembled in silence; Jakob and Anton trembled beside the harbour wallFoot 1: "
            "When the kettle followed a hollow river at last, Élodie watched a tidy barn at the end of the "
            "corridor.. The curious clock buried the stubborn blanket at last, and a damp orchard sang "
            "carefully.");
        add("comment in line", "libreoffice-notes",
            "Søren mended a heavy portrait outside the station. commented range brittle liftedRemark 1: a "
            "plain staircase lifted the forgotten plough before noon follows. Élodie counted her bridge and "
            "vanished.");

        // One text as three programs write it.
        const char* const writers[] = {"libreoffice-languages", "abiword-languages", "pandoc-languages"};
        for (const char* writer : writers) {
            const auto addLanguage = [&](const char* language, const char* text) {
                add(QByteArray(language) + " of " + writer, writer, text);
            };
            addLanguage("French",
                        "French: Dès Noël, où un zéphyr haï me vêt de glaçons würmiens, je dîne d’exquis "
                        "rôtis de bœuf.");
            addLanguage("Polish", "Polish: Zażółć gęślą jaźń, pchnąć w tę łódź jeża.");
            addLanguage("Chinese", "Simplified: 我能吞下玻璃而不伤身体。");
            addLanguage("combining characters", "Combining: e\u0301 a\u0308 n\u0303 o\u0302\u0323");
            addLanguage("RTF as text",
                        "Syntax: back\\slash {braces} \\par \\b0 \\'e9 {\\rtf1} %d 100% <tag> & amp; #hash");
        }
        add("hyphens as control words", "libreoffice-languages", "Hyphens: soft-hyphen non-breaking hyphen");
        add("hyphens as characters", "pandoc-languages",
            "Hyphens: soft\u00adhyphen non\u2011breaking hyphen");
        add("quotes", "pandoc-languages",
            "Quotes: ‘single’ “double” „low” «guillemets» ‹small› ‚low single’ 'straight' \"straight\"");
        add("spaces", "libreoffice-languages",
            "Spaces: nbsp\u00a0here en\u2002space em\u2003space thin\u2009space narrow\u202fnbsp "
            "zero\u200bwidth");
    }

    ORV_ROWS(characterFormats)
    {
        const Rows add([this](const QString& name, const QString& text, int property, const QVariant& value) {
            const QTextCursor found =
                sample(name).document->find(text, 0, QTextDocument::FindCaseSensitively);
            QVERIFY(!found.isNull());
            // From the first to the last character of the text.
            QTextCursor cursor(found);
            for (int position = found.selectionStart() + 1; position <= found.selectionEnd(); ++position) {
                cursor.setPosition(position);
                QCOMPARE(cursor.charFormat().property(property), value);
            }
        });
        const auto row = [&add](const char* name, const char* text, int property, const QVariant& value) {
            add(QByteArray(name) + ": " + text + " #" + QByteArray::number(property), name, text, property,
                value);
        };
        const char* const libreOffice = "libreoffice-charformats";
        const char* const abiWord = "abiword-charformats";
        const char* const pandoc = "pandoc-charformats";
        const char* const writers[] = {libreOffice, abiWord, pandoc};
        for (const char* writer : writers) {
            row(writer, "bold text painted tower distant", QTextFormat::FontWeight, int(QFont::Bold));
            row(writer, " and then plain basket answered noticed.", QTextFormat::FontItalic, QVariant());
            row(writer, "italic text ledger teacher workshop", QTextFormat::FontItalic, true);
            row(writer, "bold italic text followed faded clever", QTextFormat::FontItalic, true);
            row(writer, "bold italic text followed faded clever", QTextFormat::FontWeight, int(QFont::Bold));
            row(writer, "struck text copper reluctant crowded", QTextFormat::FontStrikeOut, true);
            row(writer, "superscript text buried river careful", QTextFormat::TextVerticalAlignment,
                int(QTextCharFormat::AlignSuperScript));
            row(writer, "subscript text apprentice yellow tower", QTextFormat::TextVerticalAlignment,
                int(QTextCharFormat::AlignSubScript));
        }

        const int underline = QTextFormat::TextUnderlineStyle;
        row(libreOffice, "underline solid text painter gardener remembered", underline,
            int(QTextCharFormat::SingleUnderline));
        row(libreOffice, "underline dotted text painter patient lantern", underline,
            int(QTextCharFormat::DotLine));
        row(libreOffice, "underline dash text barn blanket hid", underline,
            int(QTextCharFormat::DashUnderline));
        row(libreOffice, "underline dot-dash text curious weighed painter", underline,
            int(QTextCharFormat::DashDotLine));
        row(libreOffice, "underline dot-dot-dash text barn kettle returned", underline,
            int(QTextCharFormat::DashDotDotLine));
        row(libreOffice, "underline wave text noticed stubborn sketched", underline,
            int(QTextCharFormat::WaveUnderline));
        row(libreOffice, "double underline text notebook widow printing-press", underline,
            int(QTextCharFormat::SingleUnderline));
        row(libreOffice, "words only underline text carriage pilot copper", underline,
            int(QTextCharFormat::SingleUnderline));
        row(libreOffice, "Tobias crossed a plain corridor near the old quarry ",
            QTextFormat::FontCapitalization, int(QFont::SmallCaps));
        row(libreOffice, "Élodie hid a polite telegram under the bridge ", ORVRtfProperty::BaselineShift, 6);
        row(libreOffice, "the valley studied the careful letter slowly ", ORVRtfProperty::BaselineShift, -5);
        row(libreOffice, "10.5 points repaired answered yellow", QTextFormat::FontPointSize, 10.5);
        row(libreOffice, "48 points pilot tidy valley", QTextFormat::FontPointSize, 48.0);
        row(libreOffice, "bold red on yellow", QTextFormat::ForegroundBrush, solid(255, 0, 0));
        row(libreOffice, "white on black returned folded faded", QTextFormat::ForegroundBrush,
            solid(255, 255, 255));
        row(pandoc, "Character formats", QTextFormat::FontPointSize, 18.0);
        row(pandoc, "Character formats", QTextFormat::FontWeight, int(QFont::Bold));
        row(abiWord, "Character formats", QTextFormat::FontPointSize, 17.0);
    }

    ORV_ROWS(fontFamilies)
    {
        const Rows add([this](const QString& name, const QString& text, const QString& family) {
            const QTextCharFormat format = sample(name).format(text);
            QVERIFY(!format.hasProperty(rtftest::NotFound));
            QCOMPARE(compat::fontFamily(format), family);
        });
        const auto row = [&add](const QByteArray& name, const QByteArray& text, const QByteArray& family) {
            add(name + ": " + family, name.constData(), text.constData(), family.constData());
        };
        row("libreoffice-charformats", "Set in Liberation Serif", "Liberation Serif");
        row("libreoffice-charformats", "Set in Liberation Mono", "Liberation Mono");
        row("libreoffice-charformats", "Set in P052", "P052");
        row("libreoffice-charformats", "Set in Z003", "Z003");
        row("pandoc-charformats", "Set in Liberation Serif", "Helvetica");
        row("abiword-charformats", "Set in Liberation Mono", "Liberation Mono");
    }

    ORV_ROWS(paragraphFormats)
    {
        const Rows add([this](const QString& start, int property, const QVariant& value) {
            const QTextBlock block = blockStartingWith(*sample("libreoffice-paragraphs"_s).document, start);
            QVERIFY(block.isValid());
            QCOMPARE(block.blockFormat().property(property), value);
        });
        const auto row = [&add](const QByteArray& start, const char* what, int property,
                                const QVariant& value) {
            add(start + ' ' + what, start.constData(), property, value);
        };
        row("start aligned.", "alignment", QTextFormat::BlockAlignment, int(Qt::AlignLeft));
        row("end aligned.", "alignment", QTextFormat::BlockAlignment, int(Qt::AlignRight));
        row("center aligned.", "alignment", QTextFormat::BlockAlignment, int(Qt::AlignHCenter));
        row("justify aligned.", "alignment", QTextFormat::BlockAlignment, int(Qt::AlignJustify));

        // A first line is given relative to the left indent and kept as a position; the page is 12240 twips
        // wide with margins of 1800.
        const char* const both = "Left 0.5 right 0.5 first 0.25.";
        row(both, "left indent", ORVRtfProperty::LeftIndent, 36.0);
        row(both, "first line", QTextFormat::TextIndent, 54.0);
        row(both, "right edge", ORVRtfProperty::RightIndent, 396.0);
        const char* const hanging = "Left 1 right 1 first -0.25.";
        row(hanging, "left indent", ORVRtfProperty::LeftIndent, 72.0);
        row(hanging, "first line", QTextFormat::TextIndent, 54.0);
        row(hanging, "right edge", ORVRtfProperty::RightIndent, 360.0);
        row("Left -0.3 right 0 first 0.", "left indent", ORVRtfProperty::LeftIndent, -432 / 20.0);

        row("Before 12 after 0 single.", "space before", QTextFormat::BlockTopMargin, 12.0);
        row("Before 12 after 0 single.", "space after", QTextFormat::BlockBottomMargin, 0.0);
        row("Before 0 after 18 single.", "space after", QTextFormat::BlockBottomMargin, 18.0);
        row("Before 6 after 6 150%.", "line spacing", ORVRtfProperty::LineSpacing, 18.0);
        row("Before 6 after 6 150%.", "line multiple", ORVRtfProperty::LineMultiple, 12.0);
        row("Before 0 after 0 18pt.", "line spacing", ORVRtfProperty::LineSpacing, -18.0);
        row("Before 0 after 0 18pt.", "line multiple", ORVRtfProperty::LineMultiple, QVariant());
        row("Indents", "page break policy", QTextFormat::PageBreakPolicy, int(ORVRtfProperty::KeepWithNext));
    }

    void tabStops()
    {
        const QTextBlock block = blockStartingWith(*sample("libreoffice-paragraphs"_s).document, "left0\t"_s);
        const QList<QTextOption::Tab> expected = {
            QTextOption::Tab(72.0, QTextOption::LeftTab), QTextOption::Tab(144.0, QTextOption::CenterTab),
            QTextOption::Tab(216.0, QTextOption::RightTab),
            QTextOption::Tab(5184 / 20.0, QTextOption::DelimiterTab, QLatin1Char('.'))};
        QCOMPARE(block.blockFormat().tabPositions(), expected);
    }

    ORV_ROWS(links)
    {
        const Rows add([this](const QString& name, const QString& text, const QString& target) {
            QString linked;
            for (const QTextFragment& fragment : rtftest::fragmentsOf(*sample(name).document)) {
                if (fragment.charFormat().isAnchor() && fragment.charFormat().anchorHref() == target)
                    linked += fragment.text();
            }
            QCOMPARE(linked, text);
        });
        const auto row = [&add](const QByteArray& name, const QByteArray& text, const char* target) {
            add(name + ": " + text, name.constData(), text.constData(), target);
        };
        const char* const writers[] = {"libreoffice-links", "abiword-links", "pandoc-links"};
        for (const char* writer : writers) {
            row(writer, "plain web link", "http://example.org/");
            row(writer, "query & fragment link", "https://example.org/path/to/page.html?x=1&y=2#frag");
            row(writer, "mail link", "mailto:someone@example.org");
            row(writer, "ftp link", "ftp://ftp.example.org/pub/");
            row(writer, "internal link", "#targetA");
            row(writer, "adjacent", "http://example.org/1");
            row(writer, " links", "http://example.org/2");
            row(writer, "link with bold and italic", "http://example.org/f");
        }
        row("libreoffice-links", "unicode address link", "https://example.org/ünï/路径");
        row("pandoc-links", "unicode address link", "https://example.org/ünï/路径");
        row("libreoffice-links", "escaped address", "https://example.org/a%20b");
        row("abiword-links", "relative file link", "../../../other/file.rtf");
    }

    ORV_ROWS(notes)
    {
        const Rows add([this](const QString& name, int flag, const QString& before, const QString& text) {
            const QTextBlock block = blockStartingWith(*sample(name).document, before);
            QVERIFY(block.isValid());
            QString note;
            for (const QTextFragment& fragment : rtftest::fragmentsOf(block)) {
                if (!fragment.charFormat().boolProperty(flag))
                    continue;
                if (note.isEmpty())
                    QCOMPARE(fragment.position() - block.position(), before.size());
                note += fragment.text();
            }
            QCOMPARE(note, text);
        });
        const auto row = [&add](const QByteArray& name, int flag, const char* before,
                                const QByteArray& text) {
            add(name + ": " + text, name.constData(), flag, before, text.constData());
        };
        const int footnote = ORVRtfProperty::InFootnote;
        row("libreoffice-notes", footnote, "Nobody followed the gardener across the valley",
            "Foot 2: Anton repaired the archive outside the station.");
        row("abiword-notes", footnote, "Nobody followed the gardener across the valley",
            "\tFoot 2: Anton repaired the archive outside the station.");
        row("pandoc-notes", footnote, "Nobody followed the gardener across the valley",
            "\u00a0Foot 2: Anton repaired the archive outside the station.");
        row("libreoffice-notes", footnote, "A note with formats", "Bold note and italic and a link in note");
        row("libreoffice-notes", footnote, "Owen studied her violin on the upper landing.",
            "End 1: When Ilse crossed his faded ferry on the upper landing, his invisible clock measured the "
            "cellar half asleep.");
        row("libreoffice-notes", ORVRtfProperty::InAnnotation, "Anton unlocked the gardener and left. ",
            "Remark 2: her cellar buried the pale clock before noon");
    }

    ORV_ROWS(pictureSizes)
    {
        const Rows add([this](const QString& name, const QString& sizes) {
            QStringList found;
            for (const QTextImageFormat& image : sample(name).images())
                found << "%1x%2"_s.arg(image.width()).arg(image.height());
            QCOMPARE(found.join(' '), sizes);
        });
        // Goals are twips, at 15 a pixel; the scale of the second picture is 200 %.
        add("LibreOffice", "libreoffice-pictures", "24x16 48x32 48x32");
        // pandoc states the sizes after the kind of the picture, and only what directly follows the kind is
        // data.
        add("pandoc", "pandoc-pictures", "");
    }

    void jpegBytesAreKept()
    {
        const QByteArray data = sampleData("libreoffice-pictures"_s);
        const QByteArray start = "\\jpegblip";
        const int from = int(data.indexOf(start)) + int(start.size());
        const QByteArray jpeg = QByteArray::fromHex(data.mid(from, data.indexOf('}', from) - from));
        QCOMPARE(jpeg.size(), 623);
        const QTextImageFormat image = sample("libreoffice-pictures"_s).images().value(2);
        QCOMPARE(image.property(ORVRtfProperty::ImageType).toString(), "JPEG"_s);
        QCOMPARE(image.property(ORVRtfProperty::SourceImageData).toByteArray(), jpeg);
    }

    ORV_ROWS(tables)
    {
        const Rows add([this](const QString& name, const QString& shapes) {
            QCOMPARE(rtftest::tableLines(*sample(name).document), shapes);
        });
        const QString grids =
            "3: apple, bridge(c2) / candle(r2), dapple, ember / falcon, garden(r2) / hollow(c2)\n3: island, jacket(c2) / kettle(c2), lantern"_s;
        add("LibreOffice", "libreoffice-grids", grids);
        add("AbiWord", "abiword-grids", grids);
        // An empty paragraph surrounds a table in a cell on either side.
        add("table within a cell", "libreoffice-nested",
            "2: marble, before||{2: inner one, inner two / inner wide(c2)}||after / needle, -");
    }

    ORV_ROWS(listLevels)
    {
        const Rows add([this](int number, const QStringList& levels) {
            const QTextList* list = rtftest::listsOf(*sample("libreoffice-outline"_s).document).value(number);
            QVERIFY(list);
            QCOMPARE(QStringList(rtftest::levelLines(list).split('\n').mid(0, levels.size())), levels);
        });
        add("numbers", 0,
            {"kind 1 indent 36 first line 18 '%0.'"_s, "kind 1 indent 54 first line 36 '%1.%0'"_s,
             "kind 2 indent 72 first line 54 '%0)'"_s});
        add("Roman numbers and letters", 1,
            {"kind 5 indent 36 first line 18 '%0.'"_s, "kind 3 indent 54 first line 36 '%0.'"_s,
             "kind 4 indent 72 first line 54 '(%0)'"_s});
        add("bullets", 2, {"kind 0 indent 36 first line 18 '•'"_s, "kind 0 indent 54 first line 36 '–'"_s});
        QCOMPARE(rtftest::listsOf(*sample("libreoffice-outline"_s).document).size(), 3);
    }

    void listItems()
    {
        QCOMPARE(
            rtftest::itemLines(*sample("libreoffice-outline"_s).document),
            "0 0 barley\n0 1 copper\n0 2 linen\n0 2 pepper\n0 1 velvet\n0 0 harbour\n1 0 meadow\n1 1 orchard\n1 2 pebble\n1 1 quarry\n1 0 river\n2 0 saddle\n2 1 timber\n2 1 willow\n2 0 anchor"_s);
    }

private:
    const rtftest::Reading& sample(const QString& name)
    {
        if (!m_samples.contains(name))
            m_samples.insert(name, rtftest::read(sampleData(name)));
        return m_samples[name];
    }

    QHash<QString, rtftest::Reading> m_samples;
};

ORV_TEST("samples", TestSamples, QCoreApplication)
#include "samples.moc"
