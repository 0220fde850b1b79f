// Many sheets at once: the list of sheets, the processes that generate them, and what the user is told.
#include "generate_many.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>

#include "command.h"
#include "designation.h"
#include "utf8.h"

namespace vxk {

namespace {

namespace fs = std::filesystem;

struct sheet_job {
  std::string given;  // as the user wrote it
  std::string name;   // as the library prints it: the name of the sheet's folder
  std::string error;  // why it failed; empty when it did not
};

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// One designation a line; blank lines and lines that begin with '#' are left out.
std::vector<std::string> lines_of(const std::string& file) {
  std::ifstream f;
  if (file != "-") {
    f.open(file);
    fail_if(!f, "cannot read '" + file + "': " + std::strerror(errno));
  }
  std::istream& in = file == "-" ? std::cin : f;
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    line = trimmed(line);
    if (!line.empty() && line[0] != '#') lines.push_back(line);
  }
  fail_if(in.bad(), "cannot read '" + file + "'");
  return lines;
}

// The 36 1:200,000 sheets of a single 1:1,000,000 sheet, I to XXXVI.
std::vector<std::string> children_of(const std::string& million, bool south) {
  sheet_record sheet;
  read_printed_designation(million, south, sheet.get());
  fail_if(vx_stdlist_get_scale(sheet.get()) != VX_STDLIST_SC_MLN ||
              vx_stdlist_get_type(sheet.get()) != VX_STDLIST_TP_SGL,
          "--children takes a single 1:1,000,000 sheet such as N-37, not '" + million + "'");
  rows_sink romans;
  vx_stdlist_fetch_200_romans(romans.get());
  std::vector<std::string> out;
  for (const std::wstring& roman : romans.rows()) {
    if (!roman.empty() && roman != L"?") out.push_back(u8(designation_of(sheet.get()) + L"-" + roman));
  }
  return out;
}

// The sheets asked for, each once, in the order given. A text that names no sheet is a failed job
// already; one that names a sheet twice is told and left out.
std::vector<sheet_job> jobs_of(const many_sheets& r) {
  std::vector<std::string> given = r.designations;
  if (!r.from_file.empty()) {
    for (std::string& line : lines_of(r.from_file)) given.push_back(std::move(line));
  }
  if (!r.children.empty()) {
    for (std::string& child : children_of(r.children, r.south)) given.push_back(std::move(child));
  }
  fail_if(given.empty(), "no sheet is given");
  std::vector<sheet_job> jobs;
  std::set<std::string> names;
  for (const std::string& g : given) {
    sheet_job job{g, "", ""};
    try {
      sheet_record sheet;
      read_printed_designation(g, r.south, sheet.get());
      job.name = u8(designation_of(sheet.get()));
    } catch (const failure& f) {
      job.error = f.message;
    }
    if (!job.name.empty() && !names.insert(job.name).second) {
      std::fprintf(stderr, "vxk generate: %s is given more than once; it is generated once\n",
                   job.name.c_str());
      continue;
    }
    jobs.push_back(job);
  }
  return jobs;
}

// ---- the processes ------------------------------------------------------------------------------------

struct child {
  pid_t pid;
  int err;  // the read end of its standard error
  size_t job;
  std::string text;
};

// The sheet's own run in a process of its own: a fork of this one runs the generate command for the one
// sheet, with standard output discarded and standard error into a pipe. The library holds no threads
// and nothing of PROJ's yet, so the fork starts clean. Throws failure when no process can be made.
child start(const many_sheets& r, const sheet_job& job, size_t index) {
  std::vector<std::string> args = {job.name, "--out", (fs::path(r.out) / job.name).string()};
  args.insert(args.end(), r.sheet_options.begin(), r.sheet_options.end());
  int fds[2];
  fail_if(pipe(fds) != 0, std::string("cannot start a process: ") + std::strerror(errno));
  std::fflush(nullptr);
  const pid_t pid = fork();
  if (pid == 0) {
    const int null = open("/dev/null", O_WRONLY);
    if (null < 0 || dup2(null, STDOUT_FILENO) < 0 || dup2(fds[1], STDERR_FILENO) < 0) _exit(1);
    close(fds[0]);
    close(fds[1]);
    int status = 2;
    for (const command& c : commands()) {
      if (std::strcmp(c.name, "generate") == 0) status = c.run(args);
    }
    std::fflush(nullptr);
    _exit(status);
  }
  const int error = errno;
  close(fds[1]);
  if (pid < 0) close(fds[0]);
  fail_if(pid < 0, std::string("cannot start a process: ") + std::strerror(error));
  return {pid, fds[0], index, ""};
}

// Reads what the child says; at its end, waits for it and gives its verdict: empty when it succeeded.
bool read_some(child& c) {
  char buffer[4096];
  const ssize_t n = read(c.err, buffer, sizeof buffer);
  if (n < 0 && errno == EINTR) return false;
  if (n > 0) {
    if (c.text.size() < 65536) c.text.append(buffer, static_cast<size_t>(n));
    return false;
  }
  close(c.err);
  return true;
}

std::string verdict(child& c) {
  int status = 0;
  while (waitpid(c.pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
  std::string text = trimmed(c.text);
  const std::string prefix = "vxk generate: ";
  if (text.rfind(prefix, 0) == 0) text.erase(0, prefix.size());
  if (!text.empty()) return text;
  return WIFSIGNALED(status) ? "its process ended by signal " + std::to_string(WTERMSIG(status))
                             : "its process ended with status " + std::to_string(WEXITSTATUS(status));
}

// ---- what the user sees -------------------------------------------------------------------------------

// On a terminal, a progress bar on standard error with the failures above it; elsewhere one line per
// sheet as it is done.
class progress {
 public:
  progress(size_t total, const std::string& out) : total_(total), out_(out), bar_(isatty(STDERR_FILENO)) {
    draw();
  }

  void done(const sheet_job& job) {
    ++done_;
    if (bar_) std::fputs("\r\033[K", stderr);
    if (!job.error.empty()) {
      ++failed_;
      std::fprintf(stderr, "vxk generate: %s: %s\n", job.given.c_str(), job.error.c_str());
    } else if (!bar_) {
      std::printf("%s written to %s\n", job.name.c_str(), (fs::path(out_) / job.name).c_str());
      std::fflush(stdout);
    }
    draw();
  }

  void end() const {
    if (bar_) std::fputc('\n', stderr);
  }

 private:
  void draw() const {
    if (!bar_) return;
    const size_t width = 30, filled = total_ ? done_ * width / total_ : width;
    std::fprintf(stderr, "\r[%s%s] %zu/%zu sheets", std::string(filled, '#').c_str(),
                 std::string(width - filled, ' ').c_str(), done_, total_);
    if (failed_) std::fprintf(stderr, ", %zu failed", failed_);
    std::fflush(stderr);
  }

  size_t total_, done_ = 0, failed_ = 0;
  std::string out_;
  bool bar_;
};

void run_all(std::vector<sheet_job>& jobs, const many_sheets& r, progress& shown) {
  std::vector<child> running;
  size_t next = 0;
  while (next < jobs.size() || !running.empty()) {
    while (running.size() < r.jobs && next < jobs.size()) {
      sheet_job& job = jobs[next];
      const size_t index = next++;
      try {
        if (job.error.empty()) running.push_back(start(r, job, index));
      } catch (const failure& f) {
        job.error = f.message;
      }
      if (!job.error.empty()) shown.done(job);
    }
    if (running.empty()) continue;
    std::vector<pollfd> fds;
    for (const child& c : running) fds.push_back({c.err, POLLIN, 0});
    if (poll(fds.data(), fds.size(), -1) < 0 && errno != EINTR)
      throw failure{std::string("cannot watch the processes: ") + std::strerror(errno)};
    for (size_t i = fds.size(); i-- > 0;) {
      if (!fds[i].revents || !read_some(running[i])) continue;
      jobs[running[i].job].error = verdict(running[i]);
      shown.done(jobs[running[i].job]);
      running.erase(running.begin() + static_cast<long>(i));
    }
  }
}

}  // namespace

int generate_many(const many_sheets& request) {
  std::vector<sheet_job> jobs = jobs_of(request);
  std::error_code ec;
  const bool made = !fs::exists(request.out, ec);
  fs::create_directories(request.out, ec);
  fail_if(static_cast<bool>(ec) || !fs::is_directory(request.out),
          "cannot make the folder '" + request.out + "'" + (ec ? ": " + ec.message() : std::string()));
  progress shown(jobs.size(), request.out);
  run_all(jobs, request, shown);
  shown.end();
  std::vector<std::string> failed;
  for (const sheet_job& j : jobs) {
    if (!j.error.empty()) failed.push_back(j.given);
  }
  if (made && failed.size() == jobs.size()) fs::remove(request.out, ec);  // only when empty
  if (failed.empty()) {
    std::printf("%zu sheet%s written under %s\n", jobs.size(), jobs.size() == 1 ? "" : "s",
                request.out.c_str());
    return 0;
  }
  std::string names;
  for (const std::string& f : failed) names += (names.empty() ? "" : ", ") + f;
  std::fprintf(stderr, "vxk generate: %zu of %zu sheets failed: %s\n", failed.size(), jobs.size(),
               names.c_str());
  return 1;
}

}  // namespace vxk
