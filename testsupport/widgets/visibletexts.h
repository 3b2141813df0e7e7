/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef VISIBLETEXTS_H
#define VISIBLETEXTS_H

#include <QStringList>

class QWidget;

/**
 * The texts that a window shows or has read out: titles, labels, tool tips, accessible names, the
 * entries of combo boxes and views. Without those of its standard buttons, which are Qt's.
 */
QStringList visibleTexts(const QWidget &window);

#endif
