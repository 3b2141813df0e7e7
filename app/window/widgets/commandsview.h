/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COMMANDSVIEW_H
#define COMMANDSVIEW_H

#include "plan.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

/** The commands of a plan, to be copied or saved. */
class CommandsView : public QWidget
{
    Q_OBJECT

public:
    /** @param heading the text above the commands, which says that nothing was changed, and who has to run them */
    explicit CommandsView(const QString &heading, QWidget *parent = nullptr);

    /** Shows @p plan, or @p nothing where it has no commands. */
    void setPlan(const Plan &plan, const QString &nothing);

    /** As high as its texts are when they are wrapped; a splitter does not ask for that. */
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *createButtons();
    void copy() const;
    void save();

    Plan m_plan;
    const QString m_text;
    QLabel *const m_heading;
    QPlainTextEdit *const m_commands;
    QWidget *const m_buttons;
    QLabel *const m_notes;
};

#endif
