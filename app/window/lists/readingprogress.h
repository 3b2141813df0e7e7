/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READINGPROGRESS_H
#define READINGPROGRESS_H

#include <QWidget>

class AccountStore;
class QLabel;
class QProgressBar;
class QPushButton;

/** Shows what is being read, with a button to stop it, or when it was last read. */
class ReadingProgress : public QWidget
{
    Q_OBJECT

public:
    explicit ReadingProgress(AccountStore *store, QWidget *parent = nullptr);

private:
    void begin(const QString &text);
    void end();

    AccountStore *const m_store;
    QLabel *const m_text;
    QProgressBar *const m_bar;
    QPushButton *const m_cancel;
};

#endif
