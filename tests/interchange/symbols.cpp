#include "ORVTextListFormat.h"
#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! The text of \a body and the font of each run, but for the default one: "a[Symbol:b]". */
QString runsOf(const QByteArray& body)
{
    const Reading reading =
        importBody("\\deff9{\\fonttbl{\\f0\\fcharset2 Symbol;}{\\f1\\fcharset2 Wingdings;}{\\f2 Webdings;}"
                   "{\\f3 Zapf Dingbats;}{\\f4\\fcharset2 Strange;}{\\f5 Wingdings 3;}{\\f6 ITC Zapf "
                   "Dingbats;}{\\f7\\fcharset0 wingdings;}{\\f9 Quibble Serif;}}"
                   "\\plain "
                   + body);
    QString runs;
    for (const QTextFragment& fragment : fragmentsOf(*reading.document)) {
        const QString family = compat::fontFamily(fragment.charFormat());
        const bool isDefault = family == "Quibble Serif"_s;
        runs += isDefault ? fragment.text() : '[' + family + ':' + fragment.text() + ']';
    }
    return runs;
}

} // namespace

/*! Characters of symbol fonts, and of fields that show one. */
class TestInterchangeSymbols : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(runs)
    {
        const Rows add([](const QByteArray& body, const QString& runs) { QCOMPARE(runsOf(body), runs); });
        add("Greek letters", "x{\\f0 abg}y", "xαβγy");
        add("escaped byte", "{\\f0\\'b7}", "•");
        add("character of private use", "{\\f0\\u-3913 ?}", "•");
        add("both", "{\\f0 a\\u-3913 ?\\'62}", "α•β");
        add("arrow of Wingdings", "{\\f1\\'e0}", "🡪");
        add("raw byte", "{\\f1\xe0}", "🡪");
        add("escaped signs", "{\\f0\\{a\\}\\\\}", "{α}∴");
        add("blanks", "{\\f1\\'e0 \\'e0}", "🡪 🡪");
        add("character set of letters", "{\\f7\\'e0}", "🡪");
        add("longer name", "{\\f6 3}", "✓");
        add("words for characters", "{\\f5\\'80\\emdash\\'80}", "🞃[Wingdings 3:—]🞃");
        add("character of private use in another font", "\\u-3913 ?", "\uf0b7");
        add("hidden character", "{\\v\\f0 a}{\\f4\\u946 ?}", "[Strange:β]");
        add("beyond the first plane", "{\\f2\\'21}", "🕷");
        add("check mark of Zapf Dingbats", "{\\f3 3}", "✓");
        add("Wingdings 3", "{\\f5\\'80}", "🞃");
        add("font that nobody knows", "{\\f4 a}", "[Strange:\uf061]");
        add("font that nobody knows, private use", "{\\f4\\u-3999 ?}", "[Strange:\uf061]");
        add("byte without a character among others", "{\\f5\\'80\\'ff\\'80}", "🞃[Wingdings 3:\uf0ff]🞃");
        add("byte without a character", "{\\f4 a\\'ffb}", "[Strange:\uf061\uf0ff\uf062]");
        add("Unicode character", "{\\f4\\u946 ?}", "[Strange:β]");
        add("the font ends with plain text", "\\f0 a\\plain a", "αa");
        add("the font ends with its group", "{\\f0 a}a", "αa");
        add("control character", "{\\f5\\'01\\'80}", "[Wingdings 3:\uf001]🞃");
        add("link to a symbol", "{\\field{\\*\\fldinst HYPERLINK \\f0 \"abc\"}{\\fldrslt\\f9 x}}", "x");
        add("tab", "{\\f4 a\\tab b}", "[Strange:\uf061\t\uf062]");

        // Fields.
        add("symbol field", "x{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\" \\\\s 10}{\\fldrslt}}y",
            "x•y");
        add("font without quotes", "{\\field{\\*\\fldinst SYMBOL 97 \\\\f Symbol}{\\fldrslt}}", "α");
        add("hexadecimal number", "{\\field{\\*\\fldinst SYMBOL 0xB7 \\\\f \"Symbol\"}{\\fldrslt}}", "•");
        add("number of private use", "{\\field{\\*\\fldinst SYMBOL 61623 \\\\f Symbol \\\\u}{\\fldrslt}}",
            "•");
        add("switches in front", "{\\field{\\*\\fldinst SYMBOL 183 \\\\h \\\\s 9 \\\\f Symbol}{\\fldrslt}}",
            "•");
        add("pieces", "{\\field{\\*\\fldinst {\\b SYMBOL }{\\i 183 \\\\f \"Sym}{bol\"}}{\\fldrslt {\\b }}}",
            "•");
        add("no result", "{\\field{\\*\\fldinst SYMBOL 183 \\\\f Symbol}}", "•");
        add("Japanese", "{\\field{\\*\\fldinst SYMBOL 33440 \\\\j}{\\fldrslt}}", "あ");
        add("beyond the first plane in Unicode", "{\\field{\\*\\fldinst SYMBOL 128512 \\\\u}{\\fldrslt}}",
            "😀");
        add("no character in Unicode", "{\\field{\\*\\fldinst SYMBOL 55296 \\\\u}{\\fldrslt}}", "");
        add("number 0", "{\\field{\\*\\fldinst SYMBOL 0}{\\fldrslt}}", "");
        add("in the result of another field",
            "{\\field{\\*\\fldinst TOC}{\\fldrslt a{\\field{\\*\\fldinst SYMBOL 183 \\\\f "
            "Symbol}{\\fldrslt}}b}}",
            "a•b");
        add("in the instruction of another field",
            "{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst SYMBOL 183}{\\fldrslt x}}}{\\fldrslt y}}", "y");
        add("Unicode character with a symbol font",
            "{\\field{\\*\\fldinst SYMBOL 946 \\\\f Symbol \\\\u}{\\fldrslt}}", "β");
        add("byte without a character",
            "x{\\field{\\*\\fldinst SYMBOL 255 \\\\f \"Wingdings 3\"}{\\fldrslt}}", "x\uf0ff");
        add("one byte in Japanese", "{\\field{\\*\\fldinst SYMBOL 65 \\\\j}{\\fldrslt}}", "A");
        add("no font", "{\\field{\\*\\fldinst SYMBOL 128}{\\fldrslt}}", "€");
        add("Unicode", "{\\field{\\*\\fldinst SYMBOL 946 \\\\u}{\\fldrslt}}", "β");
        add("field with a result", "{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}{\\fldrslt x}}", "x");
        add("no number", "{\\field{\\*\\fldinst SYMBOL x}{\\fldrslt}}", "");
        add("check box that is not checked",
            "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffres0}}}{\\fldrslt}}", "☐");
        add("checked", "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffres1}}}{\\fldrslt}}",
            "☒");
        add("checked by default",
            "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffres25\\ffdefres1}}}{\\fldrslt}}",
            "☒");
        add("only the default",
            "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffdefres1}}}{\\fldrslt}}", "☒");
        add("nothing said, behind another box",
            "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\ffres1\\ffdefres1}}}}"
            "{\\field{\\*\\fldinst FORMCHECKBOX}{\\fldrslt}}",
            "☒☐");
        add("nothing said", "{\\field{\\*\\fldinst FORMCHECKBOX}{\\fldrslt}}", "☐");
    }

    /*! Bullets of lists, whose font stands behind them. */
    ORV_ROWS(bullets)
    {
        const Rows add([](const QByteArray& level, const QString& text) {
            const Reading reading = importBody(
                "{\\fonttbl{\\f0\\fcharset2 Symbol;}{\\f1 Quibble Serif;}{\\f2\\fcharset2 Strange;}}"
                "{\\*\\listtable{\\list{\\listlevel"
                + level + "}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 x\\par ");
            const QTextListFormat format = reading.block(0).textList()->format();
            QCOMPARE(ORVTextListFormat::levels(format).value(0).text(), text);
        });
        add("byte", "\\levelnfc23{\\leveltext\\'01\\'b7;}\\f0", "•");
        add("private use", "\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}\\f0", "•");
        add("Unicode character", "\\levelnfc23{\\leveltext\\'01\\u8212 ?;}\\f0", "—");
        add("font of letters", "\\levelnfc23{\\leveltext\\'01o;}\\f1", "o");
        add("font that nobody knows", "\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}\\f2", "\uf0b7");
        add("numbers", "\\levelnfc0{\\leveltext\\'02\\'00.;}\\f0", "%0.");
    }
};

ORV_TEST("interchange_symbols", TestInterchangeSymbols, QGuiApplication)
#include "symbols.moc"
