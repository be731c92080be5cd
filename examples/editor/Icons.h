#ifndef ICONS_H
#define ICONS_H

#include <Qt>

class QColor;
class QIcon;

/*! Icons for the tool bar, drawn here so that the program needs no files and no icon theme. */
namespace Icons {

QIcon bold();
QIcon italic();
QIcon underline();
/*! A letter with a bar of \a color below it. */
QIcon color(const QColor& color);
QIcon alignment(Qt::Alignment alignment);
QIcon bulletList();
QIcon numberedList();
QIcon table();
QIcon picture();

} // namespace Icons

#endif
