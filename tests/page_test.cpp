// quandrix-page without a browser: how it writes what a trace holds, which file, and what it refuses. tests/browse
// looks at the pages.
#include <regex>

#include "tests/program.h"

namespace {

Folder::Outcome run(const Folder& folder, const std::string& commands) {
    return folder.run("PAGE() { " PAGE " \"$@\"; }\n" + commands);
}

// What a shell command prints, without the line end.
std::string output_of(const Folder& folder, const std::string& command) {
    const std::string output = folder.run(command).terminal;
    return output.substr(0, output.find_last_not_of('\n') + 1);
}

// What stands between two texts of a page, at their first place.
std::string between(const std::string& page, const std::string& begin, const std::string& end) {
    const std::size_t from = page.find(begin) + begin.size();
    return page.substr(from, page.find(end, from) - from);
}

std::string frame_data(const std::string& page) { return between(page, "id=\"frame-data\">", "</script>"); }

// The lines of all frames of a page as bytes.
std::string report_lines(const std::string& page) {
    const std::string lines = std::regex_replace("\n" + frame_data(page), std::regex("\n\t[^\n]*\n|\nkey\t[^\n]*"), "");
    std::string bytes;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] != '\\') {
            bytes += lines[i];
        } else if (lines[i + 1] == '>') {
            bytes += INDENT;
            ++i;
        } else {
            bytes += bytes_of(lines.substr(i + 1, 2));
            i += 2;
        }
    }
    bytes.pop_back();  // the line end of the last frame
    return bytes;
}

std::string sample(const std::string& name) { return contents(SAMPLES "/" + name); }

// A SETUP with that display, after what stands before it.
std::string setup(const std::string& display, const std::string& before = "") {
    const std::string message =
        bytes_of("02 01 00 00 08 02 00 01 05") + before + '\x28' + static_cast<char>(display.size()) + display;
    return std::string("R") + static_cast<char>(message.size()) + message;
}

TEST(Page, BytesOfTheTraceAreEscaped) {
    const Folder folder;
    const std::string display =
        R"(</script>\3c\> "&')" + bytes_of("00 09 0d 1b 7f 80 a0 e2 80 ae ff") + "\n\t9\t-\n" + INDENT;
    const std::string number = "\x70\x0c\x81</script>\\\n";
    folder.write("<&>\"'\x80", ZERO_HEADER + "\x11\x02" + setup(display, number));
    ASSERT_EQ(run(folder, "PAGE '<&>\"'\"'\"'\x80' page").terminal, "");
    const std::string page = folder.read("page");
    EXPECT_NE(page.find("\n      \\3c/script>\\5c3c\\5c> "
                        "\"&'\\00\\09\\0d\\1b\\7f\\80\\a0\\e2\\80\\ae\\ff\n\\099\\09-\n\\>  Display"),
              std::string::npos);
    EXPECT_NE(page.find("\t\\3c/script>\\5c?\t"), std::string::npos);
    EXPECT_NE(page.find("<td>&lt;/script&gt;\\?<"), std::string::npos);
    EXPECT_NE(page.find("<title>&lt;&amp;&gt;&quot;&#39;?</title>"), std::string::npos);
    EXPECT_EQ(page.find_first_not_of("\t\n"), 0);
    EXPECT_FALSE(std::regex_search(page, std::regex("[^\\t\\n -~]")));
    // As many elements as a page of any trace has.
    const std::regex script("<script|</script");
    EXPECT_EQ(std::distance(std::sregex_iterator(page.begin(), page.end(), script), {}), 6);
}

TEST(Page, StyleAndScriptAreThoseOfThePolicy) {
    const Folder folder;
    folder.write("trace", sample("bri-calls.hex"));
    ASSERT_EQ(run(folder, "PAGE -d trace page").terminal, "");
    const std::string page = folder.read("page");
    folder.write("style", between(page, "<style>", "</style>"));
    folder.write("script", between(page, "<script>", "</script>"));
    for (const std::string name : {"style", "script"}) {
        folder.write("hash", between(page, name + "-src 'sha256-", "'"));
        EXPECT_EQ(output_of(folder, "base64 -d hash | od -An -v -tx1 | tr -d ' \\n'"),
                  output_of(folder, "sha256sum <" + name + " | cut -d' ' -f1"));
    }
    EXPECT_EQ(
        std::regex_replace(between(page, "Content-Security-Policy\" content=\"", "\""), std::regex("sha256-[^']*"), ""),
        "default-src 'none'; script-src ''; style-src ''; base-uri 'none'; form-action 'none'; "
        "require-trusted-types-for 'script'; trusted-types 'none'");
    // Nothing but text and properties is written, and nothing is asked for.
    EXPECT_FALSE(
        std::regex_search(page, std::regex("innerHTML|outerHTML|insertAdjacent|document.write|setAttribute|eval\\(|"
                                           "fetch|XMLHttp|Storage|https?:| style=| on[a-z]+=\"")));
}

TEST(Page, LinesOfTheFramesAreThoseOfTheReport) {
    for (const std::string name : {"dass2-call", "frame-types", "nsf-services", "pri-call"}) {
        const Folder folder;
        folder.write("trace", sample(name + ".hex"));
        ASSERT_EQ(run(folder, "PAGE -d trace; PAGE -d - <trace >page").terminal, "");
        const std::string page = folder.read("page");
        const std::string lines = report_lines(page);
        const std::string report = sample(name + ".hex.res");
        ASSERT_GE(report.size(), lines.size());
        const std::string head = report.substr(0, report.size() - lines.size());
        EXPECT_EQ(head + lines, report);
        EXPECT_EQ(head.find("RECEIVE"), std::string::npos);
        EXPECT_EQ(frame_data(folder.read("trace.html")), frame_data(page));
    }
}

// Two calls at once, a poll in each, and a RESTART.
TEST(Page, ChoiceOfCalls) {
    const std::string setup_a = "52 12 02 01 00 00 08 02 00 01 05 6c 07 81 35 35 35 30 30 31 ";
    const std::string setup_b = "52 12 02 01 02 00 08 02 00 02 05 6c 07 81 35 35 35 30 30 32 ";
    const std::string poll_1 = "54 04 02 01 01 02 ";
    const std::string restart = "52 0c 02 01 04 00 08 02 00 00 46 79 01 87 ";
    const std::string end_a = "52 09 02 01 06 00 08 02 00 01 5a ";
    const std::string poll_2 = "54 04 02 01 01 04 ";
    const std::string end_b = "52 09 02 01 08 00 08 02 00 02 5a ";
    const std::string poll_3 = "54 04 02 01 01 06 ";
    const Folder folder;
    folder.write("trace", ZERO_HEADER + bytes_of("11 02 " + setup_a + poll_1 + setup_b + restart + end_a + poll_2 +
                                                 end_b + poll_3));
    ASSERT_EQ(run(folder, "PAGE -c 1 trace 1; PAGE trace 2 -c 2; PAGE -c 2 -c 1 trace both").terminal, "");
    folder.write("1.trace", ZERO_HEADER + bytes_of("11 02 " + setup_a + poll_1 + end_a));
    folder.write("2.trace", ZERO_HEADER + bytes_of("11 02 " + setup_b + poll_2 + end_b));
    folder.write("both.trace", ZERO_HEADER + bytes_of("11 02 " + setup_a + poll_1 + setup_b + end_a + poll_2 + end_b));
    for (const std::string name : {"1", "2", "both"}) {
        ASSERT_EQ(folder.run("QUANDRIX " + name + ".trace report >banner").terminal, "");
        const std::string report = folder.read("report");
        EXPECT_EQ("PROTOCOL TYPE                 : PRI NET5\n" + report_lines(folder.read(name)), report);
    }
    EXPECT_EQ(folder.read("1").find("555002"), std::string::npos);
    EXPECT_NE(folder.read("2").find(": 1 of 2 calls, 2 messages, 1 other frame, 0 damaged places"), std::string::npos);
    const Folder::Outcome none = run(folder, "PAGE -c 3 trace none");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.terminal, "quandrix-page: trace: has no call 3\n");
    EXPECT_EQ(run(folder, "cat trace | PAGE -c 1 - none").status, 1);
    EXPECT_EQ(run(folder, "PAGE -c 1 - none <trace").status, 1);
    EXPECT_FALSE(exists(folder.path() / "none"));
}

// The decoder reads over the end of the first call's SETUP, into that of the second: the damage belongs to both, and
// the lines to neither alone.
TEST(Page, ChoiceOfCallsInDamage) {
    const Folder folder;
    folder.write("trace", ZERO_HEADER + bytes_of("11 02 52 0d 02 01 00 00 08 02 00 01 05 6c 20 81 35 "
                                                 "52 12 02 01 02 00 08 02 00 02 05 6c 07 81 35 35 35 30 30 32"));
    for (const std::string call : {"1", "2"}) {
        run(folder, "PAGE trace page -c " + call);
        const std::string data = frame_data(folder.read("page"));
        EXPECT_NE(data.find("\n\t!\t-\t-\t-\t2\tR\t-\t-\t-\tdamaged frame\t"), std::string::npos) << data;
        EXPECT_EQ(data.find("Number Digit"), std::string::npos) << data;
    }
}

TEST(Page, DamageIsTold) {
    const Folder folder;
    folder.write("trace",
                 ZERO_HEADER + "\x11\x02" + setup("A") + bytes_of("00 00 ") + setup("B") + setup("C").substr(0, 9));
    const Folder::Outcome outcome = run(folder, "PAGE trace");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.terminal,
              "quandrix-page: trace: 1 damaged place, at report line 3; calls may be missing\n"
              "quandrix-page: trace: the trace is cut, at report line 18; calls may be missing\n");
    const std::string page = folder.read("trace.html");
    EXPECT_NE(page.find("\n\t!\t-\t-\t-\t3\t"), std::string::npos);
    EXPECT_NE(page.find(", 1 damaged place; the trace is cut</p>\n"), std::string::npos);
}

TEST(Page, FileOfThePage) {
    const Folder folder;
    const std::string trace = sample("bri-calls.hex");
    folder.write("trace", trace);
    EXPECT_EQ(run(folder, "ln trace link; PAGE -d trace link").status, 1);
    EXPECT_EQ(run(folder, "PAGE -d trace - >>trace").status, 1);
    EXPECT_EQ(folder.read("trace"), trace);
    EXPECT_EQ(run(folder, "umask 022; chmod 640 trace; PAGE -d trace; stat -c %a trace.html").terminal, "640\n");
    EXPECT_EQ(run(folder, "PAGE -d trace absent/page").status, 1);
    EXPECT_EQ(run(folder, "PAGE -d trace - >/dev/full").status, 1);
    EXPECT_EQ(run(folder, "PAGE absent").status, 1);
}

TEST(Page, CommandLine) {
    const Folder folder;
    for (const std::string words : {"", "a b c", "-x a", "-c", "-c 0 a", "-c 1x a"}) {
        const Folder::Outcome outcome = run(folder, "PAGE " + words);
        EXPECT_EQ(outcome.status, 2) << words;
        EXPECT_NE(outcome.terminal.find("usage: quandrix-page [-d] [-c NO]... TRACE [PAGE]\n"), std::string::npos)
            << words;
    }
    EXPECT_EQ(run(folder, "PAGE --help").status, 0);
}

// An octet of an unknown element makes a line, so that 16,000 frames make a page of more than 100 MB.
TEST(Page, TooLargeAPageIsRefused) {
    const Folder folder;
    std::string body = "52 fb 02 01 00 00 08 02 00 01 05 7f f0";
    for (int octet = 0; octet < 0xF0; ++octet) {
        body += " 41";
    }
    std::string trace = ZERO_HEADER + "\x11\x02";
    const std::string record = bytes_of(body);
    for (int count = 0; count < 16000; ++count) {
        trace += record;
        trace[trace.size() - record.size() + 4] = static_cast<char>(count % 128 * 2);
    }
    folder.write("trace", trace);
    const Folder::Outcome outcome = run(folder, "PAGE trace");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.terminal, "quandrix-page: a page of more than 100 MB: choose some of its 1 call with -c\n");
    EXPECT_FALSE(exists(folder.path() / "trace.html"));
}

}  // namespace
