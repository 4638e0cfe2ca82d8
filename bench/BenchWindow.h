// The main window that the benchmarks of windows work on: started on a screen that is not there,
// with settings of its own and the first font of the system.
#pragma once

#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "core/Zendova.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"
#include "platform/controls/Look.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

inline Zendova *window = nullptr;

/// Paints what waits to be painted, and nothing else happens meanwhile.
inline void paint()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// The proportional set size of the process in MiB; 0 if the system doesn't tell.
inline int proportionalMiB()
{
    QFile memory("/proc/self/smaps_rollup");
    if (memory.open(QIODevice::ReadOnly))
        for (const QByteArray &line : memory.readAll().split('\n'))
            if (line.startsWith("Pss:"))
                return line.mid(4).simplified().split(' ').front().toInt() / 1024;
    return 0;
}

/// What main() of these benchmarks does.
inline int runOnWindow(int argc, char *argv[])
{
    FontCatalog catalog;
    QApplication application(argc, argv);
    QApplication::setStyle(new Look);
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    SettingsTree settings(folder.filePath("settings.sqlite"));
    UseSettingsTree(&settings);
    SysInfo screen;
    screen.pretend(SysInfo::Screen{{1920, 1200}, {}, 96});
    {
        Zendova first({});
        first.InitSettings("Act");
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"TextBoard"), u"FontName",
                      catalog.families().front().name, REG_SZ);
    }
    Zendova main({});
    window = &main;
    main.Start();
    paint();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    UseSettingsTree(nullptr);
    return 0;
}
