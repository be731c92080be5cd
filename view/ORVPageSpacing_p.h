#ifndef ORVPAGESPACING_P_H
#define ORVPAGESPACING_P_H

class QTextDocument;

/*! Space that pages leave out. */
namespace ORVPageSpacing {

/*! Leaves out the space between neighbours in \a document that ask for none (ORVRtfProperty::ContextualSpacing). */
void leaveOut(QTextDocument* document);

} // namespace ORVPageSpacing

#endif
