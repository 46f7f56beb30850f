// Traces of any bytes at all: the program ends, with status 0 or 1, and no sanitizer complains.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/program.h"

namespace {

constexpr unsigned SEEDS = 40;  // for every variant

using Random = std::mt19937;

unsigned below(Random& random, unsigned limit) { return static_cast<unsigned>(random() % limit); }

// A body that is mostly well-framed records of random octets, so that damage reaches the decoders.
std::string random_records(Random& random, bool basic_rate) {
    constexpr std::string_view HEAD("\x02\x01\x00\x00\x08\x01\x01\x05", 8);  // of a frame with a message
    std::string body;
    while (body.size() < 4000) {
        body += "RRTTDP"[below(random, 6)];
        body += basic_rate ? "\x05" : "";
        const unsigned length = below(random, 8) == 0 ? below(random, 256) : below(random, 40);
        body += static_cast<char>(length);
        for (unsigned octet = 0; octet < length; ++octet) {
            body += octet < HEAD.size() && below(random, 10) != 0 ? HEAD[octet] : static_cast<char>(random());
        }
    }
    for (unsigned count = below(random, 20); count > 0; --count) {
        body[below(random, static_cast<unsigned>(body.size()))] = static_cast<char>(random());
        body.erase(below(random, static_cast<unsigned>(body.size())), below(random, 5));
    }
    return body;
}

// A body as hex text, here and there with what is no number.
std::string hex_text(Random& random, const std::string& body) {
    constexpr std::array ODDITIES = {"", "\n", " x ", " -", " +0x", "G", " 123456789ABCDEF01 ", "\t\v"};
    constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string text;
    for (const char byte : body) {
        text += DIGITS[static_cast<unsigned char>(byte) >> 4U];
        text += DIGITS[static_cast<unsigned char>(byte) & 0x0FU];
        text += below(random, 400) == 0 ? ODDITIES.at(below(random, ODDITIES.size())) : " ";
    }
    return text;
}

void expect_clean_end(const std::string& body, bool hex) {
    const Folder folder;
    folder.write("trace", ZERO_HEADER + body);
    const int status = folder.run(hex ? "QUANDRIX trace report -d" : "QUANDRIX trace report").status;
    const std::string report = folder.read("report");
    const bool says_why =
        report.ends_with("\n    ERROR ABORT ") || report.find("Invalid Tx/Rx value: 0x") != std::string::npos;
    EXPECT_TRUE(status == 0 || (status == 1 && says_why)) << status;
}

class Damage : public testing::TestWithParam<int> {};

TEST_P(Damage, RunEnds) {
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed + 1000U * static_cast<unsigned>(GetParam()));
        const std::string body =
            static_cast<char>(GetParam()) + std::string("\x02") + random_records(random, GetParam() >= 128);
        expect_clean_end(body, false);
        expect_clean_end(hex_text(random, body), true);
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, Damage, testing::Values(0, 2, 7, 9, 11, 12, 16, 17, 20, 23, 24, 25, 129, 132, 133),
                         testing::PrintToStringParamName());

// Every sample cut short at each of its last bytes.
TEST(Damage, CutShort) {
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES)) {
        if (entry.path().extension() != ".res") {
            const std::string sample = contents(entry.path()).substr(ZERO_HEADER.size());
            for (std::size_t cut = 1; cut < 60; ++cut) {
                expect_clean_end(sample.substr(0, sample.size() - cut), entry.path().extension() == ".hex");
            }
        }
    }
}

}  // namespace
