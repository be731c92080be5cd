#ifndef ORVHTMLCONTEXT_P_H
#define ORVHTMLCONTEXT_P_H

#include "ORVHtmlMarkers_p.h"
#include "ORVHtmlOutput_p.h"
#include "ORVHtmlStyleSheet_p.h"
#include "ORVPictureFiles_p.h"

#include <QtCore/QSet>

class ORVHtmlNotes;

/*! What the parts of one HTML file share. A pass writes it to one output; all passes share the styles. */
struct ORVHtmlContext {
    ORVHtmlOutput* output;
    ORVHtmlStyleSheet* sheet;
    ORVHtmlMarkers* markers;
    ORVPictureFiles* pictures;
    ORVHtmlNotes* notes;
    /*! Pixels of the documents' formats to the inch. */
    int resolution;
    /*! The font and colour that the body states. */
    ORVHtmlDeclarations body;
    /*! The language of what states none. */
    QString language;
    /*! The ids of the pass so far: each is written once. */
    QSet<QString> ids;

    /*! \a pixels of a format in points. */
    double points(double pixels) const { return pixels * 72 / resolution; }
    /*! \a declarations of a font and colour as an element of the body states them. */
    ORVHtmlDeclarations withoutBody(const ORVHtmlDeclarations& declarations) const
    {
        ORVHtmlDeclarations result = declarations;
        for (const ORVHtmlDeclarations::Property property :
             {ORVHtmlDeclarations::FontFamily, ORVHtmlDeclarations::FontSize, ORVHtmlDeclarations::Color}) {
            if (result.value(property) == body.value(property))
                result.set(property, QByteArray());
            else if (result.value(property).isEmpty())
                result.set(property, ORVHtmlDeclarations::automatic(property));
        }
        return result;
    }
    /*! Whether \a id has not been written before; it counts as written from now on. */
    bool takeId(const QString& id)
    {
        const bool isNew = !ids.contains(id);
        ids.insert(id);
        return isNew;
    }
};

#endif
