#ifndef ORVMARKDOWNOUTPUT_P_H
#define ORVMARKDOWNOUTPUT_P_H

#include "html/ORVHtmlOutput_p.h"

/*! Writes blocks of Markdown in UTF-8 to a device, with empty lines between them. */
class ORVMarkdownOutput {
public:
    /*! Writes to \a device, which stays the caller's. */
    explicit ORVMarkdownOutput(QIODevice* device) : m_output(device) { }

    bool isEmpty() const { return m_isEmpty; }
    /*! From now on all lines begin with so many blanks. */
    void setIndent(int columns) { m_indent = columns; }
    /*! The next block begins with \a head, in place of the indent. */
    void setHead(const QString& head) { m_head = head; }
    bool hasHead() const { return !m_head.isEmpty(); }
    /*! Writes the head alone if no block has followed it. */
    void endHead();
    /*! Writes \a lines, which end without a line feed. */
    void block(const QString& lines);
    /*! Writes an item of a list, \a indent columns from the left; right below the line before where \a isTight. */
    void item(const QString& marker, const QString& lines, int indent, bool isTight);
    /*! Writes what is left over to the device. False when the device has failed. */
    bool finish() { return m_output.finish(); }

private:
    void line(const QString& text);
    void lines(const QString& text, int indent);

    ORVHtmlOutput m_output;
    QString m_head;
    int m_indent = 0;
    bool m_isEmpty = true;
};

#endif
