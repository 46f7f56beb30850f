// Damaged traces, and bytes without any order: the program ends, with status 0 or 1, and no sanitizer complains.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/program.h"

namespace {

constexpr unsigned SEEDS = 60;  // for every sample

void expect_clean_end(const std::string& trace, bool hex) {
    const Folder folder;
    folder.write("trace", trace);
    const int status = folder.run(hex ? "QUANDRIX trace report -d" : "QUANDRIX trace report").status;
    const std::string report = folder.read("report");
    const bool says_why =
        report.ends_with("\n    ERROR ABORT ") || report.find("Invalid Tx/Rx value: 0x") != std::string::npos;
    EXPECT_TRUE(status == 0 || (status == 1 && says_why)) << status;
}

TEST(Damage, EverySampleUnderAnyProtocol) {
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES)) {
        for (unsigned seed = 0; seed < SEEDS && entry.path().extension() != ".res"; ++seed) {
            SCOPED_TRACE(entry.path().string() + ", seed " + std::to_string(seed));
            std::mt19937 random(seed);
            const auto below = [&random](std::size_t limit) { return random() % limit; };
            const bool hex = entry.path().extension() == ".hex";
            std::string trace = contents(entry.path());
            constexpr std::array CODES = {"00", "02", "07", "09", "0B", "0C", "10", "11", "14", "17",
                                          "18", "19", "80", "81", "82", "83", "84", "85", "86"};
            trace.replace(10, hex ? 2 : 1,
                          hex ? CODES.at(below(CODES.size())) : bytes_of(CODES.at(below(CODES.size()))));
            for (auto count = below(20); count > 0; --count) {
                const char other = trace.at(below(trace.size()));
                trace.at(12 + below(trace.size() - 12)) = below(3) == 0 ? static_cast<char>(random()) : other;
                trace.erase(12 + below(trace.size() - 12), below(4));
            }
            trace.resize(trace.size() - (seed % 2 == 0 ? 0 : below(trace.size() / 2)));
            expect_clean_end(trace, hex);
        }
    }
}

TEST(Damage, BytesWithoutAnyOrder) {
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        std::mt19937 random(seed);
        std::string trace(random() % 5000, '\0');
        for (char& byte : trace) {
            byte = static_cast<char>(random() % 4 == 0 ? "RTDP\2\1\b\x14"[random() % 8] : static_cast<int>(random()));
        }
        expect_clean_end(trace, seed % 2 == 0);
    }
}

}  // namespace
