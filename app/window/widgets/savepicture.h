/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SAVEPICTURE_H
#define SAVEPICTURE_H

class QPixmap;
class QString;
class QWidget;

/** Asks where to, and writes @p picture there as a PNG file. The name of the @p user is suggested. */
void savePicture(const QPixmap &picture, const QString &user, QWidget *parent);

#endif
