#ifndef ORVRTF_MESSAGES_H
#define ORVRTF_MESSAGES_H

#include <QCoreApplication>

/*!
    The texts that people read: Messages::tr() gives them in the user's language. What programs read is not
    translated: names of options, of formats and of the members of JSON.
*/
class Messages {
    Q_DECLARE_TR_FUNCTIONS(orvrtf)
};

#endif
