#include "driver.hpp"

#include "frame/kernels.hpp"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <string>

namespace bench {
namespace {

constexpr int bandwidthSize = 100000; // elements from which on the bandwidth is shown
constexpr int longestJudged = 65536;  // elements up to which the error is: references are slow
constexpr double rowTime = 0.6;       // seconds that a row's repetitions may take, if they are not the fewest
constexpr int fewestRepetitions = 3;

std::vector<const Family*>& families()
{
    static std::vector<const Family*> all;
    return all;
}

struct Options {
    const char* kernels = "";
    const char* only = "";
    std::size_t offset = 0;
    int repetitions = 25;
} options;

// The minimum and the scatter of a contender's repetitions, in nanoseconds a call, and how exact it was.
struct Result {
    double least;
    double spread; // how far the median lies above the minimum
    std::string error;
};

std::string textOf(const Error& error)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.1g%s", error.value, error.unit);
    return text;
}

// Takes the repetitions from Google Benchmark.
class Collector : public benchmark::BenchmarkReporter {
public:
    std::map<std::string, std::vector<double>> repetitions;

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                repetitions[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
};

double secondsOf(const std::function<void()>& run)
{
    const auto begin = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// Every contender's result, in their order.
std::vector<Result> measure(const Contenders& contenders, bool judge)
{
    std::vector<std::string> errors;
    Collector collector;
    benchmark::ClearRegisteredBenchmarks();
    double once = 0;
    for (const Contender& contender : contenders) {
        contender.run(); // what happens once only is not measured
        errors.push_back(judge && contenders.error ? textOf(contenders.error()) : "");
        once += secondsOf(contender.run);
    }
    const int repetitions = std::clamp(int(rowTime / once), fewestRepetitions, options.repetitions);
    for (std::size_t i = 0; i < contenders.size(); i++) {
        benchmark::RegisterBenchmark(std::to_string(i).c_str(), [&, i](benchmark::State& state) {
            const std::function<void()>& run = contenders[i].run;
            for (auto _ : state) {
                run();
                benchmark::ClobberMemory();
            }
        })->Repetitions(repetitions);
    }
    benchmark::RunSpecifiedBenchmarks(&collector, ".");

    std::vector<Result> results;
    for (std::size_t i = 0; i < contenders.size(); i++) {
        std::vector<double>& all = collector.repetitions.at(std::to_string(i));
        std::sort(all.begin(), all.end());
        results.push_back({all.front(), all[all.size() / 2] / all.front() - 1, errors[i]});
    }
    return results;
}

std::size_t stagger;         // where in its page the next array begins
std::vector<double> spreads; // of all rows

// The names of the family's contenders, the library first.
std::vector<std::string> columnsOf(const Family& family)
{
    std::vector<std::string> columns{own};
    for (const Case& work : family.cases)
        for (const Contender& contender : work.prepare(work.sizes.front()))
            if (std::find(columns.begin(), columns.end(), contender.name) == columns.end())
                columns.push_back(contender.name);
    return columns;
}

// Bytes that may be had without making the machine swap; 0: unknown.
double availableMemory()
{
    std::ifstream info("/proc/meminfo");
    for (std::string line; std::getline(info, line);)
        if (line.rfind("MemAvailable:", 0) == 0)
            return 1024 * std::strtod(line.c_str() + std::strlen("MemAvailable:"), nullptr);
    return 0;
}

// Arrays, and as much again for tables, working memory and copies.
bool fits(const Case& work, int n)
{
    const double available = availableMemory();
    return available == 0 || 2 * work.bytes * n < 0.8 * available;
}

void printRow(const Case& work, int n, const std::vector<std::string>& columns)
{
    stagger = 0;
    const Contenders contenders = work.prepare(n);
    const std::vector<Result> results = measure(contenders, n <= longestJudged);
    std::map<std::string, Result> best;
    for (std::size_t i = 0; i < results.size(); i++) {
        const auto [entry, isNew] = best.try_emplace(contenders[i].name, results[i]);
        if (!isNew && results[i].least < entry->second.least)
            entry->second = results[i];
    }
    const Result ours = best.at(own);
    Result peers{};
    for (const auto& [name, result] : best)
        if (name != own && (peers.least == 0 || result.least < peers.least))
            peers = result;
    const double spread = std::max(ours.spread, peers.spread);
    spreads.push_back(spread);

    const double elements = work.elements ? work.elements(n) : n;
    std::printf("| %-36s | %9d |", work.name, n);
    for (const std::string& column : columns)
        if (const auto entry = best.find(column); entry != best.end())
            std::printf(" %7.4f |", entry->second.least / elements);
        else
            std::printf(" %7s |", "");
    if (peers.least > 0)
        std::printf(" %5.2f |", ours.least / peers.least);
    else
        std::printf(" %5s |", "");
    if (work.operations)
        std::printf(" %5.1f |", work.operations(n) / ours.least);
    else if (n >= bandwidthSize)
        std::printf(" %5.1f |", work.bytes * n / ours.least);
    else
        std::printf(" %5s |", "");
    std::printf(" %9s | %9s | %5.1f%% |\n", ours.error.c_str(), peers.error.c_str(), 100 * spread);
    std::fflush(stdout);
}

void printTable(const Family& family)
{
    const auto chosen = [](const Case& work) { return std::strstr(work.name, options.only) != nullptr; };
    if (std::none_of(family.cases.begin(), family.cases.end(), chosen))
        return;
    const std::vector<std::string> columns = columnsOf(family);
    std::string head, rule;
    for (const std::string& column : columns) {
        head.append(8 - std::min<std::size_t>(7, column.size()), ' ').append(column).append(" |");
        rule += "--------:|";
    }
    std::printf("\n## %s\n\nNanoseconds %s; ratio: %s to the fastest peer; error: of %s and of that peer.\n\n",
                family.name, family.unit, own, own);
    const char* const rate = family.cases.front().operations ? "Gop/s" : "GB/s";
    std::printf("| %-36s | %9s |%s %5s | %5s | %9s | %9s | %6s |\n", "", "n", head.c_str(), "ratio", rate, "error",
                "its error", "spread");
    std::printf("|%s|----------:|%s------:|------:|----------:|----------:|-------:|\n", std::string(38, '-').c_str(),
                rule.c_str());
    for (const Case& work : family.cases)
        for (const int n : work.sizes) {
            if (!chosen(work))
                continue;
            if (fits(work, n))
                printRow(work, n, columns);
            else
                std::fprintf(stderr, "%s, %d: left out, for want of memory\n", work.name, n);
        }
}

std::string processor()
{
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);)
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    return "unknown processor";
}

const char* chosenSet()
{
    const ark::Kernels* chosen = &ark::chooseKernels();
    if (*options.kernels)
        return ark::forceKernels(options.kernels) ? options.kernels : nullptr;
    return chosen == &ark::avx512::kernels ? "avx512" : chosen == &ark::avx2::kernels ? "avx2" : "sse2";
}

// The value of an argument --name=value.
const char* valueOf(const char* argument, const char* name)
{
    const std::size_t length = std::strlen(name);
    return std::strncmp(argument, name, length) == 0 ? argument + length : nullptr;
}

int usage(const char* program)
{
    std::fprintf(stderr,
                 "usage: %s [--kernels=sse2|avx2|avx512] [--only=PART-OF-A-NAME] [--offset=BYTES]\n"
                 "       [--repetitions=N] [--benchmark_min_time=SECONDS]\n",
                 program);
    return 2;
}

int run(int argc, char** argv)
{
    // What comes later wins.
    std::vector<char*> arguments{argv[0]};
    std::string defaults[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.002"};
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    for (int i = 1; i < argc; i++)
        if (const char* value = valueOf(argv[i], "--kernels="))
            options.kernels = value;
        else if ((value = valueOf(argv[i], "--only=")))
            options.only = value;
        else if ((value = valueOf(argv[i], "--offset=")))
            options.offset = std::strtoul(value, nullptr, 10);
        else if ((value = valueOf(argv[i], "--repetitions=")))
            options.repetitions = std::max(fewestRepetitions, std::atoi(value));
        else
            arguments.push_back(argv[i]);
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (count > 1)
        return usage(argv[0]);
    const char* set = chosenSet();
    if (!set) {
        std::fprintf(stderr, "%s: no kernels '%s', or this machine cannot run them\n", argv[0], options.kernels);
        return 2;
    }

    std::printf("%s: %s kernels; peers compiled for %s, compiler %s; arrays %zu bytes off a multiple of 64\n",
                processor().c_str(), set, ARKPX_BENCH_PEERS, __VERSION__, options.offset);
    for (const Family* family : families())
        printTable(*family);
    if (!spreads.empty()) {
        std::sort(spreads.begin(), spreads.end());
        std::printf(
            "\nNoise: the median repetition lies above the fastest by %.1f%% in the median row, by %.1f%% in the"
            " worst.\n",
            100 * spreads[spreads.size() / 2], 100 * spreads.back());
    }
    return 0;
}

} // namespace

Family::Family(const char* familyName, std::vector<Case> familyCases, const char* unitOfTimes)
    : name{familyName},
      unit{unitOfTimes},
      cases{std::move(familyCases)}
{
    families().push_back(this);
}

std::shared_ptr<void> allocate(std::size_t bytes)
{
    // Arrays of one case must not all lie at the same place in their pages: the processor takes a load for dependent on
    // a store when they agree in the lowest bits.
    stagger = (stagger + 320) % 4096;
    const std::size_t lead = stagger + options.offset;
    void* block = std::aligned_alloc(4096, (lead + bytes + 4095) / 4096 * 4096);
    if (!block) {
        std::fputs("out of memory\n", stderr);
        std::exit(1);
    }
    std::shared_ptr<void> owner(block, std::free);
    return {owner, static_cast<char*>(block) + lead};
}

double noise()
{
    static std::minstd_rand generator;
    return double(generator()) / (double(std::minstd_rand::max()) / 2) - 1;
}

} // namespace bench

int main(int argc, char** argv) { return bench::run(argc, argv); }
