#ifndef ORVRTF_COMMANDS_H
#define ORVRTF_COMMANDS_H

#include "Options.h"

/*!
    Carries out the command of \a options, which is none of Invalid, Help and Version. Convert and Info need a
    QGuiApplication.
*/
ExitCode runCommand(const Options& options);

#endif
