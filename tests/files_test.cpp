// Files: the trace, the report and pritemp.log, when other runs, users or the system interfere.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <regex>
#include <utility>

#include "tests/program.h"

namespace {

class Files : public testing::Test {
 protected:
    void SetUp() override {
        folder.write("t", trace);
        folder.write("h", ZERO_HEADER + "2 2" + repeated("\n52 03 02 01 63", 4000));
    }

    // Runs the commands. The program must fail with that message after the banner, and must not change SOURCE.
    void expect_failure(const std::string& commands, const std::string& message) {
        SCOPED_TRACE(commands);
        const Folder::Outcome outcome = folder.run(commands);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.terminal, BANNER + message);
        EXPECT_TRUE(folder.read("t") == trace);
    }

    static std::string cannot_open_report(const std::string& name) {
        return "ERROR:Fail to open " + name +
               " file.\nInfo:The destination file may exist on your system and ready only\nSuggestion:\nChange the "
               "permission. OR Delete the file to re-use same name. OR Use different destination file name.\n";
    }

    const Folder folder;
    const std::string trace = frames(4000);  // its report is larger than the buffer
    const std::size_t report_size = PRI.size() + 4000 * FRAME.size();
    const std::string no_temporary_file =
        "ERROR:Fail to open temporary file.\nSuggestion:Delete temporary file(\"pritemp.log\") from your system, if it "
        "exist and try again\n";
    const std::string start = BANNER + "BINARY TRACE \nISDN Protocol: PRI 4ESS/5ESS\n";
};

TEST_F(Files, SourceAndReportAreTheSameFile) {
    EXPECT_EQ(folder.run("ln t hard; ln -s t soft; ln -s t t.res").status, 0);
    for (const std::string name : {"t", "hard", "soft", "./t"}) {
        expect_failure("QUANDRIX t " + name + " -d", cannot_open_report(name));
        expect_failure("QUANDRIX t " + name, cannot_open_report(name));
    }
    expect_failure("QUANDRIX t", cannot_open_report("t.res"));
}

TEST_F(Files, ThatCannotBeUsed) {
    expect_failure("mkdir d; QUANDRIX t d -d", cannot_open_report("d"));
    expect_failure("QUANDRIX t no/o -d", cannot_open_report("no/o"));
    expect_failure("QUANDRIX d o", "Failed opening file d\n");
    EXPECT_EQ(folder.run("QUANDRIX none o").terminal,
              "Failed opening File none \n" + BANNER + "Failed opening file none\n");
    expect_failure("mkfifo fifo; QUANDRIX fifo o -d", "Seek Failed for Source File 1030\n");
    expect_failure("QUANDRIX fifo o", "Seek Failed 999\n");
    expect_failure("QUANDRIX t fifo", cannot_open_report("fifo"));
    expect_failure("ln -s /dev/full pritemp.log; QUANDRIX t o", no_temporary_file);
    expect_failure("rm pritemp.log; mkdir pritemp.log; QUANDRIX t o", no_temporary_file);
    expect_failure("rmdir pritemp.log; ln -s t pritemp.log; QUANDRIX t o", no_temporary_file);
    expect_failure("rm pritemp.log; QUANDRIX t pritemp.log", no_temporary_file);
    expect_failure("rm pritemp.log; ln -s victim pritemp.log; QUANDRIX t o; s=$?; [ ! -e victim ] && exit $s",
                   no_temporary_file);
    folder.write("victim", "precious");
    expect_failure("ln -sf victim pritemp.log; QUANDRIX t o", no_temporary_file);
    expect_failure("ln -f victim pritemp.log; QUANDRIX t o", no_temporary_file);
    EXPECT_EQ(folder.read("victim"), "precious");
}

TEST_F(Files, WithoutPermission) {
    const std::string program = geteuid() == 0 ? " setpriv --reuid=65534 --clear-groups ./program " : " ./program ";
    EXPECT_EQ(folder.run("chmod 777 .; cp " PROGRAM " program; cp t u; chmod 0 u; touch r; chmod 444 r").status, 0);
    EXPECT_EQ(folder.run(program + "u o 2>errors").terminal,
              "Failed opening File u \n" + BANNER + "Failed opening file u\n");
    expect_failure(program + "t r 2>errors", cannot_open_report("r"));
    expect_failure("touch pritemp.log; chmod 222 pritemp.log;" + program + "t o 2>errors",
                   "Failed opening pritemp.log\n");
    expect_failure("chmod 444 pritemp.log;" + program + "t o 2>errors", no_temporary_file);
}

TEST_F(Files, ReportCannotBeWrittenWhole) {
    expect_failure("QUANDRIX t /dev/full", start.substr(BANNER.size()) + "Failed writing file /dev/full\n");
    folder.write("small", frames(1));
    EXPECT_EQ(folder.run("QUANDRIX small /dev/full").terminal, start + "Failed writing file /dev/full\n");
    // A pipe whose reader ends (the first tries may come before it has started); a file that may not grow.
    expect_failure(
        "mkfifo pipe; head -c 1 pipe >byte &\nfor try in $(seq 500); do QUANDRIX t pipe >out; "
        "grep -q BINARY out && break; done; cat out; false",
        start.substr(BANNER.size()) + "Failed writing file pipe\n");
    expect_failure("ulimit -f 100; QUANDRIX t o", "Failed writing file pritemp.log\n");
}

// Runs in one folder take turns with pritemp.log, and with a report that they share.
TEST_F(Files, SeveralRunsAtOnce) {
    std::string other = frames(8000);
    std::ranges::replace(other, 'R', 'T');
    folder.write("u", other);
    const Folder::Outcome outcome = folder.run(
        "QUANDRIX t; QUANDRIX u\n"
        "for run in 1 2 3 4; do cp t t$run; cp u u$run; QUANDRIX t$run & QUANDRIX u$run & done; wait\n"
        "for run in 1 2 3 4; do cmp t.res t$run.res && cmp u.res u$run.res || exit 1; done\n"
        "for try in 1 2 3 4; do for run in 1 2 3; do for trace in t u; do QUANDRIX $trace one & done; done; wait\n"
        "cmp -s one t.res || cmp -s one u.res || exit 2; done");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

TEST_F(Files, TemporaryFileIsEmptiedDuringARun) {
    folder.write("b", frames(40000));
    const Folder::Outcome outcome = folder.run(
        "mkfifo pipe; exec 3<>pipe; QUANDRIX b pipe 3<&- & run=$!; timeout 20 head -c 1 <&3 >byte\n"
        ": >pritemp.log; timeout 20 cat pipe 3<&- >rest & exec 3<&-; wait $run");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.terminal.ends_with("Failed reading file pritemp.log\n")) << outcome.terminal;
}

// Shell functions. hold: starts a run that blocks in the middle of its report, with pritemp.log locked.
// holds_something: waits until a file is not empty.
const std::string HOLDER =
    "holds_something() { for try in $(seq 2000); do [ -s $1 ] && return; sleep 0.01; done; false; }\n"
    "hold() { mkfifo pipe; exec 3<>pipe; " PROGRAM
    " ${1}t pipe 3<&- >out & holder=$!; holds_something pritemp.log; }\n";

TEST_F(Files, AreLockedByOtherRunsAndRemovedMeanwhile) {
    // The first run waits for pritemp.log. The second one waits for a file that the first one has locked or waits for.
    for (const auto& [file, first, second] : {std::array{"o", "QUANDRIX t o", "QUANDRIX h o -d"},
                                              {"t.res", "QUANDRIX t", "QUANDRIX t"},
                                              {"pritemp.log", "QUANDRIX t o", "QUANDRIX h pritemp.log -d"}}) {
        SCOPED_TRACE(second);
        const Folder::Outcome outcome =
            folder.run(HOLDER + "rm -f pipe first second pritemp.log; hold; " + first + " 2>first >out & first=$!\n" +
                       "holds_something first; " + second + " 2>second >out & second=$!\n" +
                       "holds_something second; rm pritemp.log " + (file == std::string("pritemp.log") ? "" : file) +
                       "; kill -9 $holder; wait $first && wait $second && head -qn 1 first second");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.terminal, std::string("Waiting for another run to finish with pritemp.log\n") +
                                        "Waiting for another run to finish with " + file + "\n");
        if (file != std::string("pritemp.log")) {  // that holds the text of the last run
            EXPECT_EQ(folder.read(file).size(), report_size);
        }
    }
}

TEST_F(Files, RunsDoNotWaitForEachOther) {
    // Each one's report is the other's pritemp.log.
    const Folder::Outcome outcome = folder.run(HOLDER +
                                               "mkdir A B; cd A; hold ../\n"
                                               "(cd ../B; timeout 20 " PROGRAM
                                               " ../t ../A/pritemp.log 2>waits; echo $? >status) >out & first=$!\n"
                                               "holds_something ../B/waits; (timeout 20 " PROGRAM
                                               " ../t ../B/pritemp.log 2>waits; echo $? >status) >out &\n"
                                               "holds_something waits; kill -9 $holder; wait; cat status ../B/status");
    EXPECT_TRUE(std::regex_match(outcome.terminal, std::regex("[01]\n[01]\n"))) << outcome.terminal;
    // A lock of another kind (flock), which a script has on its own report, does not stop a run.
    EXPECT_EQ(folder.run("timeout 20 flock o " PROGRAM " t o").status, 0);
}

TEST_F(Files, TemporaryFileIsRemovedDuringARun) {
    folder.write("big", ZERO_HEADER + "\2\2" + std::string(8000000, 'c'));
    const Folder::Outcome outcome = folder.run(
        "QUANDRIX big expected; rm pritemp.log; QUANDRIX big o & until [ -s pritemp.log ]; do :; done; rm pritemp.log\n"
        "QUANDRIX t; wait $!; cmp expected o");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

// A lock makes the run print that it waits. This text must not get into any file.
TEST_F(Files, ClosedStandardStreams) {
    const Folder::Outcome outcome =
        folder.run(HOLDER + "hold; (sleep 0.3; kill -9 $holder) & QUANDRIX t o <&- >&- 2>&-");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(folder.read("o").size(), report_size);
    EXPECT_EQ(folder.run("QUANDRIX h /dev/stdout -d >&-").status, 1);
}

TEST_F(Files, ReportIsTheTerminalText) {
    for (const auto& [name, command] : {std::pair("t.res", "QUANDRIX t >>t.res"),
                                        {"/dev/stdout", "QUANDRIX h /dev/stdout -d >>t.res"},
                                        {"t.res", "QUANDRIX h t.res -d 2>>t.res >&2"},
                                        {"./t.res", "QUANDRIX h ./t.res -d 2>>t.res"}}) {
        folder.write("t.res", "kept\n");
        const Folder::Outcome outcome = folder.run(command);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(folder.read("t.res") + outcome.terminal, "kept\n" + BANNER + cannot_open_report(name));
    }
    EXPECT_EQ(folder.run("QUANDRIX t o >>pritemp.log").status, 1);
    EXPECT_TRUE(folder.read("pritemp.log") == BANNER + no_temporary_file);
    EXPECT_EQ(folder.run("QUANDRIX h /dev/stdout -d | grep -c RECEIVE").terminal, "4000\n");
}

// What was read before the error is decoded; strace makes the reads fail.
TEST_F(Files, ThatCannotBeRead) {
    EXPECT_EQ(folder.run("QUANDRIX /proc/self/mem o -d").terminal, "Failed reading file /proc/self/mem\n");
    if (folder.run("strace -o log true").status != 0) {
        GTEST_SKIP() << "strace is not allowed to trace";
    }
    for (const auto& [file, option] : {std::pair{"h", " -d"}, {"b", ""}, {"pritemp.log", ""}}) {
        folder.write("b", frames(40000));
        const Folder::Outcome outcome =
            folder.run("ASAN_OPTIONS=detect_leaks=0 strace -o log -P $PWD/" + std::string(file) +
                       " -e inject=read:error=EIO:when=2 " PROGRAM " " + (*option != 0 ? "h" : "b") + " o" + option);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.terminal.ends_with(std::string("Failed reading file ") + file + "\n")) << outcome.terminal;
        const std::string report = folder.read("o");
        EXPECT_GT(report.size(), 1000 * FRAME.size());
        EXPECT_TRUE(report.ends_with(FRAME));
    }
}

// The report is a second name of the trace. The first name is removed while the run has the trace open.
TEST_F(Files, TraceIsRenamedDuringARun) {
    if (folder.run("strace -o log true").status != 0) {
        GTEST_SKIP() << "strace is not allowed to trace";
    }
    const Folder::Outcome outcome =
        folder.run("ln t o; ASAN_OPTIONS=detect_leaks=0 strace -o log -P t -e inject=openat:delay_exit=500000 " PROGRAM
                   " t o 2>errors & \n"
                   "for try in $(seq 500); do ls -l /proc/[0-9]*/fd | grep -q \"$PWD/t$\" && break; done 2>errors\n"
                   "mv t moved; echo other >t; wait $!");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.terminal, BANNER + cannot_open_report("o"));
    EXPECT_TRUE(folder.read("o") == trace);
}

TEST_F(Files, NewOnesAreAsPrivateAsTheTrace) {
    const std::string modes = "; QUANDRIX t >out; stat -c %a t.res pritemp.log; rm t.res pritemp.log";
    EXPECT_EQ(folder.run("umask 0; chmod 600 t" + modes).terminal, "600\n600\n");
    EXPECT_EQ(folder.run("umask 0; chmod 464 t" + modes).terminal, "664\n664\n");
    EXPECT_EQ(folder.run("umask 027; chmod 644 t" + modes).terminal, "640\n640\n");
    EXPECT_EQ(folder.run("chmod 600 t; touch t.res pritemp.log; chmod 646 t.res pritemp.log" + modes).terminal,
              "646\n646\n");
    // An access control list on the trace (even one that denies) or in the folder: the new files are the owner's alone.
    EXPECT_EQ(folder.run("umask 0; chmod 644 t; setfacl -m u:4444:- t" + modes).terminal, "600\n600\n");
    EXPECT_EQ(folder.run("umask 0; setfacl -b t; chmod 640 t; setfacl -d -m u:4444:rw ." + modes).terminal,
              "600\n600\n");
    EXPECT_EQ(folder.run("QUANDRIX t >out; getfacl -ce t.res | grep -o '4444.*--$'; setfacl -k .; rm t.res").terminal,
              "4444:rw-\t#effective:---\n");
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give the trace to another group";
    }
    EXPECT_EQ(folder.run("umask 0; chgrp 12345 t; chmod 660 t; ln -s real t.res" + modes).terminal, "777\n600\n");
    EXPECT_EQ(folder.run("stat -c %a real").terminal, "600\n");
    EXPECT_EQ(folder.run("umask 0; chgrp 12345 t; chmod 664 t" + modes).terminal, "644\n644\n");
}

TEST_F(Files, LittleStack) {
    if (folder.run("QUANDRIX h; nm " PROGRAM " | grep -q __asan").status == 0) {
        GTEST_SKIP() << "the address sanitizer needs more";
    }
    EXPECT_EQ(folder.run("ulimit -s 32; QUANDRIX t && QUANDRIX h -d").status, 0);
}

int leased = -1;  // a file that this process has a lease on
void give_lease_up(int /*signal*/) { fcntl(leased, F_SETLEASE, F_UNLCK); }

TEST_F(Files, OpeningWaitsOnlyWhereItMay) {
    // A trace on which another process has a lease, which it gives up when asked.
    EXPECT_EQ(folder.run("cp t leased; pwd").status, 0);
    leased = open((folder.path() / "leased").c_str(), O_RDWR);
    std::signal(SIGIO, give_lease_up);
    ASSERT_EQ(fcntl(leased, F_SETLEASE, F_WRLCK), 0);
    EXPECT_EQ(folder.run("QUANDRIX leased o").status, 0);
    close(leased);
    EXPECT_EQ(folder.run("timeout 5 " PROGRAM " /proc/kmsg o -d").status, 1);
    // A process that writes into a FIFO still waits for its reader.
    EXPECT_EQ(folder.run("mkfifo fifo; echo data >fifo & QUANDRIX fifo o; timeout 5 cat fifo").terminal,
              BANNER + "Seek Failed 999\ndata\n");
}

TEST_F(Files, KilledRunIsRepeated) {
    // The pipe is open and nobody reads: the run blocks in the middle of its report.
    const Folder::Outcome outcome =
        folder.run("cp t copy; mkfifo pipe; exec 3<>pipe; " PROGRAM
                   " t pipe 3<&- &\n"
                   "until [ -s pritemp.log ]; do :; done; kill -9 $!; wait $!; [ $? = 137 ] && cmp t copy");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
    EXPECT_EQ(folder.run("QUANDRIX t").status, 0);
    EXPECT_EQ(folder.read("t.res").size(), report_size);
}

TEST_F(Files, NamesOfAnyLength) {
    const std::string name = std::string(200, 'a') + "/../" + std::string(200, 'b');
    EXPECT_EQ(folder.run("mkdir " + name.substr(0, 200) + "; cp t " + name + "; QUANDRIX " + name).status, 0);
    EXPECT_EQ(folder.read(name + ".res").size(), report_size);
}

// Shell commands: begin a loop over all samples.
const std::string EVERY_SAMPLE =
    "for sample in " SAMPLES "/*.hex " SAMPLES "/*.bin; do case $sample in *.hex) kind=-d;; *) kind=;; esac\n";

TEST_F(Files, SamplesDecodeToTheirReports) {
    const Folder::Outcome outcome =
        folder.run(EVERY_SAMPLE + "QUANDRIX $sample report $kind >out; diff $sample.res report || exit 1; done");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

// A few or many bits changed at random: the program ends with a message, and no sanitizer complains.
TEST_F(Files, DamagedSamplesEndWithStatus0Or1) {
    const Folder::Outcome outcome =
        folder.run(EVERY_SAMPLE +
                   "for seed in $(seq 60); do zzuf -s $seed -r 0.0002:0.05 <$sample >damaged || exit\n"
                   "QUANDRIX damaged report $kind >out\n"
                   "case $?:$(tail -c 400 report) in 0:*|1:*'ERROR ABORT '|1:*'Invalid Tx/Rx value: 0x'*) ;;\n"
                   "*) cat out; echo $sample, seed $seed; exit 1;; esac; done; done");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

}  // namespace
