/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WINDOWPARTS_H
#define WINDOWPARTS_H

#include <QStringList>

class AccountStore;
class QAbstractItemView;
class QLabel;
class QWidget;

/** Reads the accounts to the end; false when that takes too long. */
bool readAccounts(AccountStore &store);

/** The text of the field whose title is @p title; ends the test when there is none. */
QString fieldText(const QWidget &page, const char *title);

/** What @p label shows, without markup. */
QString shownText(const QLabel &label);

/** The label that leads to @p buddy; ends the test when there is none. */
QLabel *labelOf(const QWidget &buddy);

/** The rows of a flat view: the texts of the columns that are shown, joined by bars. */
QStringList shownRows(const QAbstractItemView &view);

/** The tool tips of a row, one for each column. */
QStringList toolTips(const QAbstractItemView &view, int row);

/** The visible texts that have less room than they need. */
QStringList clippedTexts(const QWidget &window);

#endif
