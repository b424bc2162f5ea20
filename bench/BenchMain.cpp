// SPDX-License-Identifier: GPL-3.0-or-later
// Runs every benchmark of the folder. Models want an application object, of which this is the only one.
#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
