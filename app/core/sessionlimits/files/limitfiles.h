/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITFILES_H
#define LIMITFILES_H

#include "pammodule.h"

#include <QString>
#include <QVector>

namespace PamLimits
{
/** A limits file, or another file in its folder that people may take for one. */
struct File {
    enum class State : quint8 {
        Read,
        Directory, ///< opened like a file, but without a line
        Missing, ///< left out
        FailsSession, ///< PAM cannot open it either
        Unreadable, ///< PAM may be able to read it
        OtherName, ///< not read: the name does not end in .conf
        Hidden, ///< not read: the name begins with a dot
    };

    QString path;
    State state = State::Read;
    /** Why it could not be read. */
    QString error;
    /** Also that of a file that PAM does not read because of its name. */
    QByteArray content;

    /** Whether pam_limits takes rules from it. */
    bool isRead() const
    {
        return state == State::Read;
    }
};

/** The limits files in /etc/security, in the order in which pam_limits reads them. */
struct Files {
    /** Files that are not read are sorted in by their names. */
    QVector<File> files;
    /** Why limits.d cannot be listed; empty when it can, or does not exist. */
    QString directoryError;

    static Files read(const Module &module);
};
}

#endif
