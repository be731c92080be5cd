#ifndef RTFWRITINGHELPERS_H
#define RTFWRITINGHELPERS_H

#include "ORVTextRtf.h"
#include "ORVTextRtfCommon.h"
#include "ORVTextRtfWriter.h"
#include "rtftesthelpers.h"

#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtGui/QTextCursor>
#include <QtTest/QtTest>

/*! What the tests of writing share: one call that writes, and a check of whatever was written. */
namespace rtftest {

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
        // A word and its value, an escaped byte, another symbol, a brace, or a run of text.
        static const QRegularExpression grammar(
            QStringLiteral("\\\\([A-Za-z]+)(-?[0-9]+)? ?|\\\\'[0-9A-Fa-f]{2}|\\\\.?|[{}]|[^\\\\{}]+"),
            QRegularExpression::DotMatchesEverythingOption);
        QRegularExpressionMatchIterator it =
            grammar.globalMatch(QString::fromLatin1(rtf.constData(), int(rtf.size())));
        for (bool isFirst = true; it.hasNext(); isFirst = false) {
            if (!isFirst && m_groups.isEmpty())
                fail(QStringLiteral("content after the last group"));
            process(it.next());
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

    void process(const QRegularExpressionMatch& token)
    {
        const QByteArray text = token.captured().toLatin1();
        const bool firstInGroup = m_groupBegins;
        m_groupBegins = text == "{";
        if (text == "{")
            m_groups.append(destination());
        else if (text == "}" && m_groups.isEmpty())
            fail(QStringLiteral("a group is closed that is not open"));
        else if (text == "}")
            m_groups.removeLast();
        else if (token.capturedLength(1) > 0)
            processWord(token.captured(1).toLatin1(), token.captured(2).toInt(), firstInGroup);
        else if (text.startsWith('\\'))
            processSymbol(text);
        else if (destination() == "colortbl")
            m_colorCount += text.count(';');
    }

    void processWord(const QByteArray& word, int value, bool firstInGroup)
    {
        static const QSet<QByteArray> fontWords = {"f", "af", "deff"};
        static const QSet<QByteArray> colorWords = {"cf",      "cb",      "highlight", "ulc",
                                                    "clcbpat", "chcbpat", "brdrcf"};
        static const QSet<QByteArray> destinations = {"fonttbl", "colortbl", "listtable",
                                                      "listoverridetable"};
        if (!isKnown(word))
            fail(QStringLiteral("unknown word \\%1").arg(QString::fromLatin1(word)));
        if (destinations.contains(word) && !m_groups.isEmpty())
            m_groups.last() = word;
        if (word == "f" && firstInGroup && destination() == "fonttbl")
            define(m_fonts, value, "font");
        else if (word == "listid" && destination() == "listtable")
            define(m_listIds, value, "list");
        else if (word == "ls" && destination() == "listoverridetable")
            define(m_lists, value, "list override");
        else if (fontWords.contains(word))
            m_usedFonts.insert(value);
        else if (colorWords.contains(word))
            m_usedColors.insert(value);
        else if (word == "ls")
            m_usedLists.insert(value);
    }

    void processSymbol(const QByteArray& symbol)
    {
        if (symbol.size() < 2 || !strchr("'~*\\{}", symbol.at(1)))
            fail(QStringLiteral("unknown symbol %1").arg(QString::fromLatin1(symbol)));
        if (symbol == "\\'")
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
    bool m_groupBegins = false;
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

/*! What follows \a begin in \a rtf, up to the end of the group. */
inline QByteArray tableOf(const QByteArray& rtf, const QByteArray& begin)
{
    const int entries = int(rtf.indexOf(begin)) + int(begin.size());
    return rtf.mid(entries, rtf.indexOf("}\n", entries) - entries);
}

/*! The entries of the font table of \a rtf. */
inline QByteArray fontTableOf(const QByteArray& rtf)
{
    return tableOf(rtf, "{\\fonttbl");
}

/*! The entries of the colour table of \a rtf, without the empty first one. */
inline QByteArray colorTableOf(const QByteArray& rtf)
{
    return tableOf(rtf, "{\\colortbl;");
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
