// The benchmarks of what paints need one Qt application, which draws into memory.
//
//   panel_bench [--samples FILE] [BENCHMARK OPTION...]     FILE: what single iterations took, as JSON
#include "panel/look/fonts.h"
#include "samples.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStyleFactory>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

int main(int argc, char** argv)
try {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application{argc, argv};
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(servopanel::panel::panelFont(14));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    if (argc == 3 && std::string{argv[1]} == "--samples") servopanel::bench::samples().write(argv[2]);
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << "panel_bench: " << error.what() << '\n';
    return EXIT_FAILURE;
}
