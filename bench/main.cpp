#include <benchmark/benchmark.h>
#include <malloc.h>

int main(int argc, char** argv) {
    // The allocator keeps what is freed. Otherwise it gives memory back between two runs or not,
    // by chance, and page faults outweigh the work that is compared.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
