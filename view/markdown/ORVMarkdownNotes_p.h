#ifndef ORVMARKDOWNNOTES_P_H
#define ORVMARKDOWNNOTES_P_H

struct ORVMarkdownContext;

/*! The notes behind the text. */
namespace ORVMarkdownNotes {

/*! Writes the texts of all notes of \a context, and of those within them. */
void write(ORVMarkdownContext* context);

} // namespace ORVMarkdownNotes

#endif
