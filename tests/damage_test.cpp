// Traces of any bytes at all: the program ends, with status 0 or 1, and no sanitizer complains.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/program.h"

namespace {

constexpr unsigned SEEDS = 40;  // each in every kind of damage and several variants

using Random = std::mt19937;

unsigned below(Random& random, unsigned limit) { return static_cast<unsigned>(random() % limit); }

// A body whose bytes are mostly well-framed records of random octets, so that damage reaches the decoders.
std::string random_records(Random& random, bool basic_rate) {
    std::string body;
    while (body.size() < 4000) {
        body += "RRTTDP"[below(random, 6)];
        if (basic_rate) {
            body += static_cast<char>(random());
        }
        const unsigned length = below(random, 8) == 0 ? below(random, 256) : below(random, 40);
        body += static_cast<char>(length);
        for (unsigned octet = 0; octet < length; ++octet) {
            // Octets 4 to 8 of a frame begin a message and its elements.
            constexpr std::string_view HEAD("\x02\x01\x00\x00\x08\x01\x01\x05", 8);
            body += octet < HEAD.size() && below(random, 10) != 0 ? HEAD[octet] : static_cast<char>(random());
        }
    }
    return body;
}

void damage(Random& random, std::string& body) {
    for (unsigned count = below(random, 20); count > 0; --count) {
        const unsigned at = below(random, static_cast<unsigned>(body.size()));
        switch (below(random, 3)) {
            case 0: body[at] = static_cast<char>(random()); break;
            case 1: body.erase(at, below(random, 5)); break;
            default: body.insert(at, 1, "RTDP"[below(random, 4)]);
        }
    }
}

// A body as hex text, here and there with what is no number.
std::string hex_text(Random& random, const std::string& body) {
    constexpr std::array ODDITIES = {" ", "\n", "x", "-", "+0x", "0x", "123456789ABCDEF01", "G4", "\t\v"};
    std::string text;
    for (const char byte : body) {
        constexpr std::string_view DIGITS = "0123456789abcdef";
        text += DIGITS[static_cast<unsigned char>(byte) >> 4U];
        text += DIGITS[static_cast<unsigned char>(byte) & 0x0FU];
        text += below(random, 400) == 0 ? ODDITIES.at(below(random, ODDITIES.size())) : " ";
    }
    return text;
}

void expect_clean_end(const std::string& body, bool hex) {
    const Folder folder;
    folder.write("trace", ZERO_HEADER + body);
    const Outcome result = hex ? run(folder, {"trace", "report", "-d"}) : run(folder, {"trace", "report"});
    EXPECT_TRUE(result.status == 0 || result.status == 1) << result.status << "\n" << result.terminal;
    EXPECT_TRUE(result.status == 0 || folder.read("report").find("ERROR ABORT ") != std::string::npos ||
                folder.read("report").find("Invalid Tx/Rx value: 0x") != std::string::npos);
}

class Damage : public testing::TestWithParam<int> {};

TEST_P(Damage, RunEnds) {
    const int variant = GetParam();
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed + 1000U * static_cast<unsigned>(variant));
        std::string body = static_cast<char>(variant) + std::string("\x02") + random_records(random, variant >= 128);
        damage(random, body);
        expect_clean_end(body, false);
        expect_clean_end(hex_text(random, body), true);
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, Damage, testing::Values(0, 2, 7, 9, 11, 12, 16, 17, 20, 23, 24, 25, 129, 132, 133),
                         testing::PrintToStringParamName());

TEST(Damage, BytesWithoutAnyOrder) {
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        Random random(seed);
        std::string body;
        for (unsigned size = below(random, 5000); size > 0; --size) {
            body += static_cast<char>(random());
        }
        expect_clean_end(body, seed % 2 == 0);
    }
}

// Every sample cut short at every byte of its end.
TEST(Damage, CutShort) {
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES)) {
        if (entry.path().extension() == ".hex") {
            const std::string sample = contents(entry.path()).substr(ZERO_HEADER.size());
            for (std::size_t size = sample.size() - std::min<std::size_t>(sample.size(), 60); size < sample.size();
                 ++size) {
                expect_clean_end(sample.substr(0, size), true);
            }
        }
    }
}

}  // namespace
