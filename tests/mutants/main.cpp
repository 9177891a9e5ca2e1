// SPDX-License-Identifier: MIT
#include "tests/mutants/switch.hpp"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Adds a line to the file: test, milliseconds of processor time, the mutants whose
// places it came by.
class ReachedListener : public testing::EmptyTestEventListener {
  public:
    explicit ReachedListener(std::string path) : path_(std::move(path)) {}

    void OnTestEnd(const testing::TestInfo& test) override {
        std::ofstream file(path_, std::ios::app);
        file << test.test_suite_name() << '.' << test.name() << '\t';
        file << std::clock() / (CLOCKS_PER_SEC / 1000) << '\t';
        for (int number = 0; number < mutants::most; ++number)
            if (mutants::reached[number])
                file << number << ' ';
        file << '\n';
    }

  private:
    std::string path_;
};

// Each in a process of its own: what one has computed and kept, the next would not come by.
int runEachAlone(const std::string& path) {
    testing::UnitTest& all = *testing::UnitTest::GetInstance();
    all.listeners().Append(new ReachedListener(path));
    int failures = 0;
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const std::string name = std::string(suite.name()) + '.' + suite.GetTestInfo(j)->name();
            std::cout.flush();
            const pid_t child = fork();
            if (child == 0) {
                testing::GTEST_FLAG(filter) = name;
                std::exit(RUN_ALL_TESTS());
            }
            int status = -1;
            waitpid(child, &status, 0);
            if (status != 0)
                ++failures;
        }
    }
    return failures;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (const char* variable = std::getenv("VKR_MUTANTS_REACHED")) {
        const std::string path = variable;
        unsetenv("VKR_MUTANTS_REACHED"); // a death test starts the program once more
        return runEachAlone(path) == 0 ? 0 : 1;
    }
    return RUN_ALL_TESTS();
}
