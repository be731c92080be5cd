#ifndef ORVMARKDOWNPIECE_P_H
#define ORVMARKDOWNPIECE_P_H

#include <QtCore/QString>
#include <QtCore/QVector>

/*! A part of a paragraph whose text has one format. */
struct ORVMarkdownPiece {
    enum Kind {
        Text,
        LineBreak,
        Markup //!< Markdown as it stands: a picture, the mark of a note, an anchor.
    };
    /*! Bits of the style. Those up to Subscript are elements around text. */
    enum Style {
        Bold = 0x1,
        Italic = 0x2,
        StrikeOut = 0x4,
        Underline = 0x8,
        Superscript = 0x10,
        Subscript = 0x20,
        Code = 0x40
    };
    enum { ElementCount = 6 };

    ORVMarkdownPiece() = default;
    ORVMarkdownPiece(Kind pieceKind, const QString& pieceText, int pieceStyle = 0,
                     const QString& pieceLink = QString())
        : kind(pieceKind), text(pieceText), style(pieceStyle), link(pieceLink)
    {
    }

    Kind kind = Text;
    QString text;
    int style = 0;
    /*! The target of a link; empty for other text. */
    QString link;
};

using ORVMarkdownPieces = QVector<ORVMarkdownPiece>;

#endif
