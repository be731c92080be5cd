#ifndef RTFWRITINGHELPERS_H
#define RTFWRITINGHELPERS_H

#include "ORVTextRtf.h"
#include "ORVTextRtfCommon.h"
#include "ORVTextRtfWriter.h"
#include "rtftesthelpers.h"

#include <QtCore/QBuffer>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtGui/QTextCursor>
#include <QtTest/QtTest>

/*! What the tests of writing share: one call that writes, and a check of whatever was written. */
namespace rtftest {

/*! One piece of RTF: a brace, a control word or symbol, or a run of text. */
struct Token {
    enum Kind { Open, Close, Word, Symbol, Text };
    Kind kind;
    /*! Letters of a word, the character of a symbol, or the text; the bytes of a "\'" are in value. */
    QByteArray name;
    bool hasValue = false;
    int value = 0;
};

/*! Splits RTF by its own grammar, which knows nothing of what the words mean. */
class Tokenizer {
public:
    explicit Tokenizer(const QByteArray& rtf) : m_rtf(rtf) { }

    QVector<Token> tokens()
    {
        QVector<Token> result;
        while (m_pos < m_rtf.size())
            result.append(next());
        return result;
    }

private:
    static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    char at(int pos) const { return pos < m_rtf.size() ? m_rtf.at(pos) : '\0'; }

    static Token token(Token::Kind kind, const QByteArray& name)
    {
        Token result;
        result.kind = kind;
        result.name = name;
        return result;
    }

    Token next()
    {
        const char c = at(m_pos);
        if (c == '{' || c == '}') {
            ++m_pos;
            return token(c == '{' ? Token::Open : Token::Close, QByteArray(1, c));
        }
        if (c == '\\')
            return isLetter(at(m_pos + 1)) ? word() : symbol();
        const int start = m_pos;
        while (m_pos < m_rtf.size() && !strchr("{}\\", at(m_pos)))
            ++m_pos;
        if (m_pos == start)
            ++m_pos; // NUL, which strchr finds
        return token(Token::Text, m_rtf.mid(start, m_pos - start));
    }

    Token word()
    {
        const int start = ++m_pos;
        while (isLetter(at(m_pos)))
            ++m_pos;
        Token result = token(Token::Word, m_rtf.mid(start, m_pos - start));
        const int number = m_pos;
        if (at(m_pos) == '-' && isDigit(at(m_pos + 1)))
            ++m_pos;
        while (isDigit(at(m_pos)))
            ++m_pos;
        result.hasValue = m_pos > number;
        result.value = m_rtf.mid(number, m_pos - number).toInt();
        if (at(m_pos) == ' ')
            ++m_pos;
        return result;
    }

    Token symbol()
    {
        Token result = token(Token::Symbol, m_rtf.mid(m_pos + 1, 1));
        m_pos += 2;
        if (result.name == "'") {
            result.value = m_rtf.mid(m_pos, 2).toInt(&result.hasValue, 16);
            m_pos += 2;
        }
        return result;
    }

    QByteArray m_rtf;
    int m_pos = 0;
};

/*! Finds what is wrong with the structure of RTF that was written. */
class WellFormedness {
public:
    /*! What is wrong first, empty when nothing is. */
    static QString problemOf(const QByteArray& rtf)
    {
        ORVTextRtfCommon::initHash();
        WellFormedness check;
        check.run(rtf);
        return check.m_problem;
    }

private:
    void run(const QByteArray& rtf)
    {
        if (!rtf.startsWith("{\\rtf1\\ansi"))
            fail(QStringLiteral("does not begin as RTF"));
        const QVector<Token> tokens = Tokenizer(rtf).tokens();
        for (int i = 0; i < tokens.size(); ++i) {
            if (i > 0 && m_groups.isEmpty())
                fail(QStringLiteral("content after the last group"));
            process(tokens.at(i), i > 0 && tokens.at(i - 1).kind == Token::Open);
        }
        if (!m_groups.isEmpty())
            fail(QStringLiteral("%1 groups are not closed").arg(m_groups.size()));
        checkReferences(m_usedFonts, m_fonts, "font");
        checkReferences(m_usedLists, m_lists, "list");
        checkReferences(m_lists, m_listIds, "list of an override");
        for (int color : qAsConst(m_usedColors)) {
            if (color < 0 || color >= m_colorCount)
                fail(QStringLiteral("colour %1 is not in the table").arg(color));
        }
    }

    void process(const Token& token, bool firstInGroup)
    {
        switch (token.kind) {
        case Token::Open: m_groups.append(m_groups.isEmpty() ? QByteArray() : m_groups.last()); break;
        case Token::Close:
            if (m_groups.isEmpty())
                fail(QStringLiteral("a group is closed that is not open"));
            else
                m_groups.removeLast();
            break;
        case Token::Word: processWord(token, firstInGroup); break;
        case Token::Symbol: processSymbol(token); break;
        case Token::Text:
            if (destination() == "colortbl")
                m_colorCount += token.name.count(';');
            break;
        }
    }

    void processWord(const Token& token, bool firstInGroup)
    {
        static const QSet<QByteArray> fontWords = {"f", "af", "deff"};
        static const QSet<QByteArray> colorWords = {"cf",      "cb",      "highlight", "ulc",
                                                    "clcbpat", "chcbpat", "brdrcf"};
        static const QSet<QByteArray> destinations = {"fonttbl", "colortbl", "listtable",
                                                      "listoverridetable"};
        if (!isKnown(token.name))
            fail(QStringLiteral("unknown word \\%1").arg(QString::fromLatin1(token.name)));
        if (destinations.contains(token.name) && !m_groups.isEmpty())
            m_groups.last() = token.name;
        if (token.name == "f" && firstInGroup && destination() == "fonttbl")
            define(m_fonts, token.value, "font");
        else if (token.name == "listid" && destination() == "listtable")
            define(m_listIds, token.value, "list");
        else if (token.name == "ls" && destination() == "listoverridetable")
            define(m_lists, token.value, "list override");
        else if (fontWords.contains(token.name))
            m_usedFonts.insert(token.value);
        else if (colorWords.contains(token.name))
            m_usedColors.insert(token.value);
        else if (token.name == "ls")
            m_usedLists.insert(token.value);
    }

    void processSymbol(const Token& token)
    {
        if (token.name.isEmpty() || !strchr("'~*\\{}", token.name.at(0)))
            fail(QStringLiteral("unknown symbol \\%1").arg(QString::fromLatin1(token.name)));
        if (token.name == "'" && !token.hasValue)
            fail(QStringLiteral("an escaped byte without two hexadecimal digits"));
    }

    // A word that is not in the vocabulary is mostly one that text was glued to.
    static bool isKnown(const QByteArray& word)
    {
        // The shading words of MS Word, and the switch of a page reference ("PAGEREF name \\h").
        if (word == "chshdng" || word == "chcbpat" || word == "h")
            return true;
        const QByteArray spelling = '\\' + word;
        const ORVTextRtfCommon::KeyWord keyWord =
            ORVTextRtfCommon::fromLatin1(spelling.constData(), unsigned(spelling.size()));
        return keyWord != ORVTextRtfCommon::NoKeyWord
            && ORVTextRtfCommon::toLatin1(keyWord) == QLatin1String(spelling);
    }

    QByteArray destination() const { return m_groups.isEmpty() ? QByteArray() : m_groups.last(); }

    void define(QSet<int>& numbers, int number, const char* what)
    {
        if (numbers.contains(number))
            fail(QStringLiteral("%1 %2 is defined twice").arg(QLatin1String(what)).arg(number));
        numbers.insert(number);
    }

    void checkReferences(const QSet<int>& used, const QSet<int>& defined, const char* what)
    {
        for (int number : used) {
            if (!defined.contains(number))
                fail(QStringLiteral("%1 %2 is not in its table").arg(QLatin1String(what)).arg(number));
        }
    }

    void fail(const QString& problem)
    {
        if (m_problem.isEmpty())
            m_problem = problem;
    }

    // The table that each open group belongs to, empty outside the tables.
    QVector<QByteArray> m_groups;
    QSet<int> m_fonts;
    QSet<int> m_usedFonts;
    QSet<int> m_listIds;
    QSet<int> m_lists;
    QSet<int> m_usedLists;
    QSet<int> m_usedColors;
    int m_colorCount = 0;
    QString m_problem;
};

/*!
    What is wrong with the structure of \a rtf, empty when nothing is: groups must balance, words must be
    known, and each font, colour and list that is referred to must be in its table.
*/
inline QString checkWellFormed(const QByteArray& rtf)
{
    return WellFormedness::problemOf(rtf);
}

/*! Passes \a rtf on; the running test fails when it is not well formed. */
inline QByteArray wellFormed(const QByteArray& rtf)
{
    const QString problem = checkWellFormed(rtf);
    if (!problem.isEmpty())
        QTest::qFail(qPrintable(problem + QLatin1String(" in ") + QString::fromLatin1(rtf)), __FILE__,
                     __LINE__);
    return rtf;
}

/*! The settings of a writer; the defaults are the writer's own. */
struct WriteSettings {
    bool inPlace = false;
    bool exportingMode = false;
    bool paragraphBeforeTableEnded = false;
    bool highlightForMsWord = false;
    bool decorateHyperlinks = false;
    /*! Invalid: the writer's default stays. */
    QColor hyperlinksColor;
    bool footnotesWithLeadingSpace = false;
    ORVTextRtf::ExportStyle footnoteDestination = ORVTextRtf::ExportAsFootnote;
    ORVTextRtf::ExportStyle annotationDestination = ORVTextRtf::ExportAsAnnotation;

    /*! Hands on only what is not the default, so that the defaults of the writer are tested too. */
    void applyTo(ORVTextRtfWriter& writer) const
    {
        const WriteSettings defaults;
        if (exportingMode)
            writer.setExportingMode(true);
        if (paragraphBeforeTableEnded)
            writer.setParagraphBeforeTableEnded(true);
        if (highlightForMsWord)
            writer.setHightlightForMsWord(true);
        if (decorateHyperlinks)
            writer.setDecorateHyperlinks(true);
        if (hyperlinksColor.isValid())
            writer.setHyperlinksColor(hyperlinksColor);
        if (footnotesWithLeadingSpace)
            writer.setFootnotesWithLeadingSpace(true);
        if (footnoteDestination != defaults.footnoteDestination)
            writer.setFootnoteDestination(footnoteDestination);
        if (annotationDestination != defaults.annotationDestination)
            writer.setAnnotationDestination(annotationDestination);
    }
};

/*! Settings with nothing but one that is set. */
inline WriteSettings settingsWith(bool WriteSettings::*setting)
{
    WriteSettings settings;
    settings.*setting = true;
    return settings;
}

inline WriteSettings exporting()
{
    return settingsWith(&WriteSettings::exportingMode);
}

/*! \a document as RTF by a fresh writer; the running test fails when it cannot be written or is malformed. */
inline QByteArray write(const QTextDocument& document, const WriteSettings& settings = WriteSettings())
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&buffer);
    settings.applyTo(writer);
    if (!writer.write(&document, settings.inPlace))
        QTest::qFail("the document was not written", __FILE__, __LINE__);
    return wellFormed(buffer.data());
}

/*! The part of \a rtf after the tables and document settings, without the last brace. */
inline QByteArray bodyOf(const QByteArray& rtf)
{
    const int settings = rtf.indexOf("\\pgnstarts");
    const int begin = settings + int(qstrlen("\\pgnstarts0"));
    if (settings < 0 || !rtf.endsWith('}')) {
        QTest::qFail("no body", __FILE__, __LINE__);
        return QByteArray();
    }
    return rtf.mid(begin, rtf.size() - begin - 1);
}

/*! The body of \a document as RTF; after the header and footer groups, if there are any, they come first. */
inline QByteArray writeBody(const QTextDocument& document, const WriteSettings& settings = WriteSettings())
{
    return bodyOf(write(document, settings));
}

/*! What a document's first paragraph begins with when its format says nothing. */
inline QByteArray firstParagraph()
{
    return "\n\\pard\\plain \\ltrch\\loch ";
}

/*! The entries of the font table of \a rtf. */
inline QByteArray fontTableOf(const QByteArray& rtf)
{
    const QByteArray begin = "{\\fonttbl";
    const int entries = int(rtf.indexOf(begin)) + int(begin.size());
    return rtf.mid(entries, rtf.indexOf("}\n", entries) - entries);
}

/*! The entries of the colour table of \a rtf, without the empty first one. */
inline QByteArray colorTableOf(const QByteArray& rtf)
{
    const QByteArray begin = "{\\colortbl;";
    const int entries = int(rtf.indexOf(begin)) + int(begin.size());
    return rtf.mid(entries, rtf.indexOf("}\n", entries) - entries);
}

/*! The only entry in the font table of a document that has no font but the tests' default font. */
inline QByteArray defaultFontEntry()
{
    return "{\\f0\\fnil\\fcharset1252\\fprq2 Quibble Sans;}";
}

/*! The colour table's entries for black and white, which come before any other colour. */
inline QByteArray blackAndWhite()
{
    return "\\red0\\green0\\blue0;\\red255\\green255\\blue255;";
}

/*! The beginning of a document with the default page setup, up to where its body begins. */
inline QByteArray documentHead(const QByteArray& fontEntries = defaultFontEntry(),
                               const QByteArray& colorEntries = QByteArray())
{
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n{\\fonttbl" + fontEntries + "}\n{\\colortbl;"
        + colorEntries
        + "}\n\\paperw12240\\paperh15840\\margl1800\\margr1800\\margt1440\\margb1440\\fet2\\ftnbj\\aenddoc\n"
          "\\pgnrestart\\pgnstarts0";
}

/*! A one-paragraph document with the tests' default font and \a text in \a format. */
inline QSharedPointer<QTextDocument> textDocument(const QString& text,
                                                  const QTextCharFormat& format = QTextCharFormat())
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCursor(document.data()).insertText(text, format);
    return document;
}

} // namespace rtftest

#endif
