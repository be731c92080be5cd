#ifndef ORVRTFSCRIPTS_P_H
#define ORVRTFSCRIPTS_P_H

#include <QtCore/QString>

/*!
    Formats that depend on the script of the text. RTF states fonts, sizes, weights and slants up to three
    times: for Western text, for East Asian text, and for scripts that are complex to lay out, such as Arabic,
    Hebrew or Devanagari. Text has the plain format but for the properties that are stated for its script alone.
*/
class ORVRtfScripts {
public:
    enum Script { Western, EastAsian, Complex, ScriptCount };

    /*! What is stated for one script alone; negative where nothing is. */
    struct Formats {
        /*! The number of the font. */
        int font = -1;
        int halfPoints = -1;
        int bold = -1;
        int italic = -1;
    };

    /*! Whether nothing is stated for a single script. */
    bool isEmpty() const { return !m_isStated; }
    const Formats& formats(Script script) const { return m_formats[script]; }

    /*! What follows is stated for \a script (`\loch`, `\dbch`, `\rtlch`, `\ltrch`). */
    void select(Script script)
    {
        m_selected = script;
        m_isSelected = true;
    }
    /*! Nothing that follows is stated for any script (`\hich`). */
    void deselect() { m_isSelected = false; }
    /*! Signs at the beginning of text are Western from now on, or belong to the script before them. */
    void setSignsAreWestern(bool areWestern) { m_areSignsWestern = areWestern; }
    bool areSignsWestern() const { return m_areSignsWestern; }
    /*! The script whose plain format is the one of plain words. */
    void setPlainScript(Script script) { m_plainScript = script; }

    /*! States one of the formats for the selected script. */
    void set(int Formats::*format, int value)
    {
        if (!m_isSelected)
            return;
        m_formats[m_selected].*format = value;
        m_isStated = true;
    }
    /*! A plain word states one of the formats, which is that of East Asian text behind `\dbch`. */
    void setPlain(int Formats::*format)
    {
        const bool isEastAsian = m_isSelected && m_selected == EastAsian;
        m_formats[isEastAsian ? EastAsian : m_plainScript].*format = -1;
    }

    /*!
        Number of characters of \a text, from \a start on, that have the same script. Blanks, digits and signs
        belong to the script before them. \a script is that of the text before, and is set to theirs.
    */
    static int run(const QString& text, int start, Script& script);

private:
    Formats m_formats[ScriptCount];
    bool m_isStated = false;
    // What a document states before any of the words that select.
    Script m_selected = Complex;
    bool m_isSelected = true;
    Script m_plainScript = Western;
    bool m_areSignsWestern = false;
};

#endif
