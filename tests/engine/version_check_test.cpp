#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace {

struct ProbeResult {
    std::string out;
    std::string err;
    int status = -1;
};

std::string ReadAll(int fd)
{
    std::string text;
    char buffer[4096];
    ssize_t n;
    while ((n = read(fd, buffer, sizeof buffer)) > 0)
        text.append(buffer, static_cast<size_t>(n));
    close(fd);
    return text;
}

// Runs the probe program in a fresh process and collects both streams. The
// probe's output is small, so reading one pipe after the other cannot block.
ProbeResult RunProbe(const char* major, const char* minor)
{
    int out[2], err[2];
    if (pipe(out) != 0 || pipe(err) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        dup2(out[1], 1);
        dup2(err[1], 2);
        close(out[0]);
        close(err[0]);
        execl(NXXML_VERSION_PROBE, NXXML_VERSION_PROBE, major, minor, static_cast<char*>(nullptr));
        _exit(127);
    }
    close(out[1]);
    close(err[1]);
    ProbeResult result;
    result.out = ReadAll(out[0]);
    result.err = ReadAll(err[0]);
    waitpid(child, &result.status, 0);
    return result;
}

std::string Banner(const char* generator)
{
    return std::string("\n-----------------Version Mismatch-----------------\n"
                       "Orvane Systems XML 2011 - Version Mismatch Error\n"
                       "Please ensure your generated code is the same version as this library (Orvane Runtime: v9.0, "
                       "Generator: v") +
           generator + ").\n";
}

} // namespace

TEST(VersionCheck, MatchingVersionPrintsNothingAndWorks)
{
    const ProbeResult result = RunProbe("9", "0");
    ASSERT_TRUE(WIFEXITED(result.status) && WEXITSTATUS(result.status) == 0);
    EXPECT_EQ(result.out, "MARK\nWROTE:\n");
    EXPECT_EQ(result.err, "MARK\n");
}

TEST(VersionCheck, MismatchPrintsOnceAtFirstConstructionThenEveryEntryPrintsAndThrows)
{
    struct Case {
        const char* major;
        const char* minor;
        const char* shown;
    };
    for (const Case& c : {Case{"8", "0", "8.0"}, Case{"9", "1", "9.1"}, Case{"none", "", "0.0"}}) {
        SCOPED_TRACE(c.shown);
        const ProbeResult result = RunProbe(c.major, c.minor);
        ASSERT_TRUE(WIFEXITED(result.status) && WEXITSTATUS(result.status) == 0);
        EXPECT_EQ(result.out, Banner(c.shown) + "MARK\n" + Banner(c.shown) +
                                  "THROWN:Wrong Version (Orvane Runtime: v9.0, Generator: v" + c.shown + ")\n");
        EXPECT_EQ(result.err, Banner(c.shown) + "MARK\n" + Banner(c.shown));
    }
}
