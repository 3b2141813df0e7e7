/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "help.h"

#include "readingorder.h"

#include <KLazyLocalizedString>
#include <KLocalizedString>

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int widthInCharacters = 60;
constexpr int heightInLines = 24;

const struct {
    QLatin1String page;
    KLazyLocalizedString text;
} pages[] = {
    {QLatin1String("users"),
     kli18n("The list shows the users of /etc/passwd. The search looks at names, numbers, groups, home directories and "
            "shells. A click on the title of a column sorts the list; the context menu of the titles chooses columns. "
            "Beside the list are the details of the selected user: names of groups are links, and each limit names the "
            "line that sets it.")},
    {QLatin1String("groups"),
     kli18n("The list shows the groups of /etc/group. The members of the selected group are those that its line names "
            "and those whose primary group it is. A double-click on a member shows the user.")},
    {QLatin1String("limits"),
     kli18n("PAM reads these lines at each login, in this order. Select one to see what it means, what is wrong with "
            "it, and for which users it decides.")},
    {QLatin1String("problems"),
     kli18n("The accounts and limits are checked when they are read, and again when their files change. Errors come "
            "first, then warnings and notes. Select a problem to see what it means and what to do. Passwords are "
            "checked only where /etc/shadow can be read.")},
    {QLatin1String("new-account"),
     kli18n("Enter the data of a new account. A note below a field says what is wrong with it.")},
    {QLatin1String("commands"),
     kli18n("These commands make the change. Copy them into a terminal in which you are root, or save them as a script "
            "and run it as root. The script stops at the first command that fails. A note below the commands says what "
            "they cannot change. The commands fit the accounts as they are now. If the accounts change before you run "
            "them, close the dialog and begin again.")},
};

QString paragraph(const QString &text)
{
    return QStringLiteral("<p>%1</p>").arg(ReadingOrder::ofSentence(text).toHtmlEscaped());
}

QString textOf(const QString &page)
{
    const auto *const found =
        std::find_if(std::begin(pages), std::end(pages), [&page](const auto &entry) { return entry.page == page; });
    return found == std::end(pages) ? QString() : paragraph(found->text.toString());
}

QString heading(const QString &text)
{
    return QStringLiteral("<h3>%1</h3>").arg(text.toHtmlEscaped());
}

/** A heading and a row for each key; empty without keys. Tables in rich text are not mirrored by Qt. */
QString keys(const QList<QAction *> &actions)
{
    const bool isMirrored = QGuiApplication::isRightToLeft();
    const QString row = isMirrored
        ? QStringLiteral("<tr><td>%2</td><td width=\"24\"></td><td align=\"right\">%1</td></tr>")
        : QStringLiteral("<tr><td>%1</td><td width=\"24\"></td><td>%2</td></tr>");
    QString rows;
    for (const QAction *action : actions) {
        const QString name = KLocalizedString::removeAcceleratorMarker(action->text());
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        if (!key.isEmpty()) {
            rows += row.arg(key.toHtmlEscaped(), name.toHtmlEscaped());
        }
    }
    if (rows.isEmpty()) {
        return QString();
    }
    const QString table =
        isMirrored ? QStringLiteral("<table align=\"right\">%1</table>") : QStringLiteral("<table>%1</table>");
    return heading(i18nc("@title of a list of keys and what they do", "Keys")) + table.arg(rows);
}
}

QDialog *Help::createDialog(const QString &page, const QString &title, const QList<QAction *> &actions, QWidget *parent)
{
    auto *dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(i18nc("@title:window", "Help"));
    auto *text = new QTextBrowser(dialog);
    text->setObjectName(QStringLiteral("helpText"));
    text->setAccessibleName(dialog->windowTitle());
    text->setHtml(heading(title) + textOf(page)
                  + paragraph(i18n("The window never changes an account, a group or a limit.")) + keys(actions));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    const QFontMetrics metrics = dialog->fontMetrics();
    dialog->resize(widthInCharacters * metrics.averageCharWidth(), heightInLines * metrics.lineSpacing());
    return dialog;
}
