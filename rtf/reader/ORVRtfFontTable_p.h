#ifndef ORVRTFFONTTABLE_P_H
#define ORVRTFFONTTABLE_P_H

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QFont>

class QTextCharFormat;

/*!
    The fonts of a document by their RTF numbers, and the code page that each is encoded in.
*/
class ORVRtfFontTable {
public:
    /*! Code page of a font that names none. */
    static constexpr int noCodePage = -1;

    struct Font {
        QFont font;
        // Differs from that of every font defined before.
        quint64 serial;
    };

    /*! Font \a number until another is defined; null when it is not. */
    const Font* find(int number) const;
    int codePage(int number) const { return m_codePages.value(number, noCodePage); }
    void setCodePage(int number, int codePage);

    /*! Has the fonts that follow keep their names, in front of those of what stands for them. */
    void keepNames() { m_keepsNames = true; }
    /*! Sets the name of a font that can stand for the next one that is defined, where names are kept. */
    void setAlternative(const QString& name) { m_alternative = name; }

    /*! Sets the style of the next font that is defined. */
    void setStyleHint(QFont::StyleHint hint) { m_styleHint = hint; }

    /*!
        Defines font \a number as the installed family that replaces \a name best, with everything else from
        \a format. \a name is as it stands in the file: white space around it and a ";" at its end are left
        out. An empty name never replaces a font.
    */
    void define(int number, const QString& name, const QTextCharFormat& format);

    /*!
        The family to use for a font that is shown in \a matchedFamily. The dialog font of Windows, which
        stands in for fonts that are missing, is a poor one to write in; a family of the style \a hint
        replaces it. Any other match leaves \a family as it is.
    */
    static QString familyToUse(const QString& family, bool exactMatch, const QString& matchedFamily,
                               QFont::StyleHint hint);

private:
    static bool matchInstalled(QFont& font, QFont::StyleHint hint);
    static QStringList families(const QString& name, const QString& alternative, const QString& installed);

    QHash<int, Font> m_fonts;
    quint64 m_definedFonts = 0;
    // How often a name has been looked for among the installed fonts.
    int m_matchedFonts = 0;
    QHash<int, int> m_codePages;
    QFont::StyleHint m_styleHint = QFont::AnyStyle;
    bool m_keepsNames = false;
    QString m_alternative;
};

#endif
