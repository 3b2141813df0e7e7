/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef VISIBLETEXTS_H
#define VISIBLETEXTS_H

#include <QStringList>

class QWidget;

/**
 * The visible and accessible texts of a window: titles, labels, tool tips, accessible names, entries of combo
 * boxes and views. The texts of standard buttons are left out, since they are Qt's.
 */
QStringList visibleTexts(const QWidget &window);

#endif
