/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "screenshots.h"

#include "about.h"
#include "accountdialogs.h"
#include "command.h"
#include "commandsdialog.h"
#include "icons.h"
#include "mainwindow.h"
#include "plan.h"

#include <GroupInfo>
#include <GroupSelectDialog>
#include <UserIconDialog>
#include <UserInfo>
#include <UserSelectDialog>
#include <UserUtils>

#include <KLocalizedString>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QEventLoop>
#include <QLinearGradient>
#include <QMessageBox>
#include <QPainter>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace
{
/** A picture for the icon dialog where there are no stock pictures. */
QPixmap samplePicture()
{
    QPixmap picture(640, 400);
    QLinearGradient sky(0, 0, 0, picture.height());
    sky.setColorAt(0, QColor(0x3d, 0x7e, 0xb8));
    sky.setColorAt(1, QColor(0xf6, 0xd3, 0xa8));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xf4, 0xd0));
    painter.drawEllipse(QPoint(440, 130), 48, 48);
    painter.setBrush(QColor(0x2f, 0x5d, 0x50));
    painter.drawEllipse(QPoint(200, 470), 420, 190);
    painter.setBrush(QColor(0x24, 0x47, 0x3e));
    painter.drawEllipse(QPoint(560, 480), 330, 170);
    return picture;
}

QPixmap stockPicture()
{
    const QPixmap picture(UserUtils::getRandomUserIcon(false));
    return picture.isNull() ? samplePicture() : picture;
}

std::unique_ptr<QWidget> selectUsers(bool single)
{
    auto dialog = AccountDialogs::makeSelection<UserSelectDialog>();
    dialog->setSingleSelectionMode(single);
    return dialog;
}

std::unique_ptr<QWidget> selectGroups(bool single)
{
    auto dialog = AccountDialogs::makeSelection<GroupSelectDialog>();
    dialog->setSingleSelectionMode(single);
    return dialog;
}

std::unique_ptr<QWidget> selectIcon()
{
    auto dialog = std::make_unique<UserIconDialog>();
    dialog->setPixmap(stockPicture());
    return dialog;
}

std::unique_ptr<QWidget> commands()
{
    Plan plan;
    plan.add({"usermod", "--append", "--groups", "audio,video"}, "ada");
    plan.add({"gpasswd", "--delete", "ada"}, "staff");
    return std::make_unique<CommandsDialog>(i18nc("@title:window", "Change the Groups of %1", QStringLiteral("ada")),
                                            plan);
}

std::unique_ptr<QWidget> about()
{
    return std::unique_ptr<QWidget>(About::createDialog());
}

struct Dialog {
    const char *name;
    std::unique_ptr<QWidget> (*create)();
};

const Dialog dialogs[] = {
    {"dialog-select-users", [] { return selectUsers(false); }},
    {"dialog-select-one-user", [] { return selectUsers(true); }},
    {"dialog-select-groups", [] { return selectGroups(false); }},
    {"dialog-select-one-group", [] { return selectGroups(true); }},
    {"dialog-select-icon", selectIcon},
    {"dialog-commands", commands},
    {"dialog-about", about},
};

/** Whether a part of @p widget is still waiting for something, such as the picture of a user. */
bool isWaiting(const QWidget &widget)
{
    const auto timers = widget.findChildren<QTimer *>();
    return std::any_of(
        timers.begin(), timers.end(), [](const QTimer *timer) { return timer->isActive() && timer->isSingleShot(); });
}

/** Takes pictures of what is shown until one of them cannot be written. */
class Camera
{
public:
    explicit Camera(const QString &directory)
        : m_directory(directory)
    {
    }

    bool take(QWidget &widget, const QString &name)
    {
        QCoreApplication::processEvents();
        // The layout of a part may change the layout of its parent.
        QCoreApplication::processEvents();
        while (isWaiting(widget)) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        const QString file = m_directory.filePath(name + QStringLiteral(".png"));
        if (!widget.grab().save(file)) {
            failure(i18n("Cannot write '%1'.", file));
            return false;
        }
        return print(file + QLatin1Char('\n')) == Success;
    }

private:
    QDir m_directory;
};

bool takePages(Camera &camera)
{
    MainWindow window;
    QEventLoop reading;
    QObject::connect(&window, &MainWindow::reloaded, &reading, &QEventLoop::quit);
    window.show();
    // Not every platform paints, and only the first paint would start reading.
    window.reload();
    reading.exec();
    QTabWidget &pages = *window.pages();
    for (int page = 0; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        if (!camera.take(window, QStringLiteral("page-") + pages.currentWidget()->objectName())) {
            return false;
        }
    }
    pages.setCurrentIndex(0);
    return camera.take(*window.showHelp(), QStringLiteral("dialog-help"));
}

bool takeDialogs(Camera &camera)
{
    return std::all_of(std::begin(dialogs), std::end(dialogs), [&camera](const Dialog &dialog) {
        const std::unique_ptr<QWidget> widget = dialog.create();
        widget->show();
        return camera.take(*widget, QString::fromLatin1(dialog.name));
    });
}
}

int writeScreenshots(const QString &directory)
{
    if (!QDir().mkpath(directory)) {
        return failure(i18n("Cannot create the directory '%1'.", directory));
    }
    Icons::findThemes();
    Camera camera(directory);
    return takePages(camera) && takeDialogs(camera) ? Success : Failure;
}
