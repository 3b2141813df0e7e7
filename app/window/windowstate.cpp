/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "windowstate.h"

#include "mainwindow.h"
#include "partsplitter.h"
#include "recordlist.h"

#include <QRegularExpression>
#include <QSettings>
#include <QTabWidget>

namespace
{
struct Settings : QSettings {
    Settings()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("ormel-users"), QStringLiteral("window"))
    {
    }
};

QString geometryKey()
{
    return QStringLiteral("geometry");
}

QString pageKey()
{
    return QStringLiteral("page");
}

QString splitterKey(const PartSplitter &splitter)
{
    return QStringLiteral("splitters/") + splitter.objectName();
}

template<typename Part>
QList<Part *> parts(const MainWindow &window)
{
    return window.findChildren<Part *>(QRegularExpression(QStringLiteral(".")));
}
}

void WindowState::save(const MainWindow &window)
{
    Settings settings;
    settings.setValue(geometryKey(), window.saveGeometry());
    settings.setValue(pageKey(), window.pages()->currentIndex());
    const auto splitters = parts<PartSplitter>(window);
    for (const PartSplitter *splitter : splitters) {
        settings.setValue(splitterKey(*splitter), splitter->saveBorders());
    }
    const auto lists = parts<RecordList>(window);
    for (const RecordList *list : lists) {
        list->saveState(settings);
    }
}

void WindowState::restore(MainWindow &window)
{
    const Settings settings;
    window.restoreGeometry(settings.value(geometryKey()).toByteArray());
    window.pages()->setCurrentIndex(settings.value(pageKey()).toInt());
    const auto splitters = parts<PartSplitter>(window);
    for (PartSplitter *splitter : splitters) {
        splitter->restoreBorders(settings.value(splitterKey(*splitter)).toByteArray());
    }
    const auto lists = parts<RecordList>(window);
    for (RecordList *list : lists) {
        list->restoreState(settings);
    }
}
