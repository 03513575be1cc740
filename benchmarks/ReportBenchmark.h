// Building the printable report of the largest truss and writing it in each form.
#pragma once

/// To be called before the benchmarks are run.
void RegisterReportBenchmarks();
