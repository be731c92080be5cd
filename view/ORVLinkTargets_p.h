#ifndef ORVLINKTARGETS_P_H
#define ORVLINKTARGETS_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! The targets of links, as files of other formats have them. */
namespace ORVLinkTargets {

/*! Whether \a target is a script, which a program that shows it could run. */
bool isScript(const QString& target);

/*! \a target as an address, with the characters escaped that addresses do not have; folders end with "/". */
QString address(const QString& target);

/*! The address of \a target in ASCII: its other characters are escaped, those of a host in the way of hosts. */
QByteArray uri(const QString& target);

} // namespace ORVLinkTargets

#endif
