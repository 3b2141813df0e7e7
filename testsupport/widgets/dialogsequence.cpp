/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogsequence.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace
{
/** Takes a step for each modal dialog that is shown. */
class DialogWatcher : public QObject
{
public:
    explicit DialogWatcher(const QVector<DialogStep> &steps)
        : m_steps(steps)
    {
        qApp->installEventFilter(this);
    }

    int seen() const
    {
        return m_seen;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (dialog && event->type() == QEvent::Show && dialog->isModal()) {
            // In the event loop of the dialog, with a timer of its own: a step may open another dialog.
            QTimer::singleShot(0, dialog, [this, dialog] { takeStep(dialog); });
        }
        return false;
    }

private:
    void takeStep(const QPointer<QDialog> &dialog)
    {
        const int step = m_seen++;
        if (step < m_steps.size()) {
            m_steps.at(step)(*dialog);
        }
        if (dialog && dialog->isVisible()) {
            dialog->close();
        }
    }

    const QVector<DialogStep> m_steps;
    int m_seen = 0;
};
}

bool withDialogs(QAbstractButton &button, const QVector<DialogStep> &steps)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const DialogWatcher watcher(steps);
    QTest::mouseClick(&button, Qt::LeftButton);
    return watcher.seen() == steps.size();
}

DialogStep choosesFile(const QString &path)
{
    return [path](QWidget &dialog) {
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!name) {
            qFatal("This is no file dialog");
        }
        name->setText(path); // without the completions that keys bring up
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    };
}

DialogStep cancels()
{
    return [](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
}
