/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icons.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QStandardPaths>

void Icons::useScreenResolution()
{
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void Icons::setFallback()
{
    const QPalette palette = QGuiApplication::palette();
    const bool dark = palette.window().color().lightness() < palette.windowText().color().lightness();
    QIcon::setFallbackThemeName(dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
}

void Icons::findThemes()
{
    const QStringList paths = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    QIcon::setThemeSearchPaths(paths + QIcon::themeSearchPaths());
    if (QIcon::themeName().isEmpty()) {
        QIcon::setThemeName(QStringLiteral("hicolor"));
    }
}
