/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <QApplication>
#include <QFile>

#include <dlfcn.h>

// The application object exists before the library, which is loaded along with the module.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (dlopen("libormel-users-qt.so.1", RTLD_NOLOAD | RTLD_NOW)) {
        qFatal("The library is there already");
    }
    void *module = dlopen(QFile::encodeName(QApplication::arguments().at(1)).constData(), RTLD_NOW);
    if (!module) {
        qFatal("%s", dlerror());
    }
    const auto printTexts = reinterpret_cast<void (*)()>(dlsym(module, "printTexts"));
    printTexts();
    return 0;
}
