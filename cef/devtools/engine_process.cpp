#include "devtools/engine_process.h"

#include <array>
#include <charconv>
#include <sstream>

#include "devtools/loopback_listener.h"
#include "devtools/random_token.h"
#include "devtools/task_thread.h"
#include "devtools/text.h"
#include "devtools/unix_host.h"

namespace cefedition {
namespace {

constexpr std::chrono::milliseconds kKillTimeout{3000};

// Arguments: port, token, output file ("" for none), program, its arguments. Wine quotes a command
// line for Unix programs in its own way, so the text holds neither double quotes nor backslashes.
constexpr char kSupervisor[] = R"(
use strict;
use Fcntl qw(F_DUPFD);
use POSIX ();
use Socket qw(:DEFAULT IPPROTO_TCP TCP_NODELAY);
my ($port, $token, $output, @command) = @ARGV;
my $newline = chr(10);
# Chromium refuses to run its sandbox as root.
push(@command, '--no-sandbox') if $> == 0;
sub dial {
  socket(my $s, PF_INET, SOCK_STREAM, 0) or exit 1;
  connect($s, pack_sockaddr_in($port, INADDR_LOOPBACK)) or exit 1;
  setsockopt($s, IPPROTO_TCP, TCP_NODELAY, 1);
  return $s;
}
$SIG{PIPE} = 'IGNORE';
my $control = dial();
my $pipe = dial();
open(STDIN, '<', '/dev/null');
open(STDOUT, '>>', $output) or open(STDOUT, '>', '/dev/null');
open(STDERR, '>&STDOUT');
my $child = fork();
defined $child or exit 1;
if ($child == 0) {
  POSIX::setpgid(0, 0);
  syswrite($pipe, $token . ' pipe' . $newline);
  my $high = fcntl($pipe, F_DUPFD, 10);
  POSIX::dup2($high, 3);
  POSIX::dup2($high, 4);
  POSIX::close($high);
  $SIG{PIPE} = 'DEFAULT';
  exec { $command[0] } @command;
  print STDERR $command[0], ': ', $!, $newline;
  POSIX::_exit(127);
}
close($pipe);
POSIX::setpgid($child, $child);
syswrite($control, $token . ' control ' . $child . $newline);
$SIG{CHLD} = sub { };
my $status;
while (1) {
  if (waitpid($child, POSIX::WNOHANG()) == $child) { $status = $?; last; }
  my $read = '';
  vec($read, fileno($control), 1) = 1;
  if (select($read, undef, undef, 1) > 0) {
    kill('KILL', -$child);
    waitpid($child, 0);
    $status = $?;
    last;
  }
}
kill('KILL', -$child);
syswrite($control, $status . $newline);
)";

void AppendQuoted(std::wstring& command_line, const std::string& argument) {
  if (!command_line.empty()) {
    command_line += L' ';
  }
  command_line += L'"';
  size_t backslashes = 0;
  for (wchar_t c : Utf8ToWide(argument)) {
    if (c == L'"') {
      command_line.append(backslashes + 1, L'\\');
    }
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    command_line += c;
  }
  command_line.append(backslashes, L'\\');
  command_line += L'"';
}

bool Spawn(const std::string& program, const std::vector<std::string>& arguments) {
  std::wstring command_line;
  AppendQuoted(command_line, program);
  for (const std::string& argument : arguments) {
    AppendQuoted(command_line, argument);
  }
  STARTUPINFOW startup = {};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION info = {};
  if (!CreateProcessW(ToWindowsPath(program).c_str(), command_line.data(), nullptr, nullptr, FALSE,
                      0, nullptr, nullptr, &startup, &info)) {
    return false;
  }
  UniqueHandle process(info.hProcess);
  UniqueHandle thread(info.hThread);
  return true;
}

// "TOKEN word rest": the words behind a matching token.
std::optional<std::string> AfterToken(const std::string& line, const std::string& token) {
  if (line.size() <= token.size() || line.compare(0, token.size(), token) != 0) {
    return std::nullopt;
  }
  return line.substr(token.size() + 1);
}

std::string DescribeStatus(const std::string& text) {
  int status = 0;
  std::from_chars(text.data(), text.data() + text.size(), status);
  const int signal = status & 127;
  if (signal != 0) {
    return "ended by signal " + std::to_string(signal);
  }
  const int code = status >> 8;
  if (code == 127) {
    return "could not be executed";
  }
  return "ended with exit status " + std::to_string(code);
}

}  // namespace

std::unique_ptr<EngineProcess> EngineProcess::Start(const Launch& launch,
                                                    std::chrono::milliseconds timeout,
                                                    std::string& error) {
  using Clock = std::chrono::steady_clock;
  if (!IsUnixHost()) {
    error = "the browser is started through Wine's Unix host, and this is not Wine";
    return nullptr;
  }
  LoopbackListener listener;
  if (!listener.IsOpen()) {
    error = "no port on the loopback interface could be opened";
    return nullptr;
  }
  const std::string token = MakeToken();
  std::vector<std::string> arguments = {"-e",  kSupervisor,   std::to_string(listener.port()),
                                        token, launch.output, launch.program};
  arguments.insert(arguments.end(), launch.arguments.begin(), launch.arguments.end());
  if (!Spawn("/usr/bin/perl", arguments)) {
    error = "/usr/bin/perl, which supervises the browser, could not be started (error " +
            std::to_string(GetLastError()) + ")";
    return nullptr;
  }
  ByteStream control;
  ByteStream pipe;
  int unix_pid = 0;
  const auto deadline = Clock::now() + timeout;
  while (!control.IsOpen() || !pipe.IsOpen()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
      error = "the browser's supervisor did not connect in time";
      return nullptr;
    }
    std::string line;
    std::optional<ByteStream> stream = listener.Accept(left, line);
    const std::optional<std::string> words = AfterToken(line, token);
    if (!stream || !words) {
      continue;
    }
    constexpr std::string_view kControl = "control ";
    if (*words == "pipe") {
      pipe = std::move(*stream);
    } else if (words->starts_with(kControl)) {
      std::from_chars(words->data() + kControl.size(), words->data() + words->size(), unix_pid);
      control = std::move(*stream);
    }
  }
  return std::unique_ptr<EngineProcess>(
      new EngineProcess(std::move(control), std::move(pipe), unix_pid));
}

EngineProcess::EngineProcess(ByteStream control, ByteStream pipe, int unix_pid)
    : control_(std::move(control)),
      pipe_(std::move(pipe)),
      unix_pid_(unix_pid),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      watcher_([this] { WatchControl(); }) {}

EngineProcess::~EngineProcess() {
  Kill();
  WaitForEnd(kKillTimeout);
  control_.Shutdown();
  watcher_.join();
}

ByteStream EngineProcess::TakePipe() {
  return std::move(pipe_);
}

bool EngineProcess::WaitForEnd(std::chrono::milliseconds timeout) {
  return WaitAnsweringSentMessages(ended_.get(), timeout);
}

std::string EngineProcess::EndReason() const {
  std::lock_guard hold(lock_);
  return end_reason_;
}

void EngineProcess::Kill() {
  control_.Write("k");
}

void EngineProcess::WatchControl() {
  std::string status;
  char buffer[64];
  while (const size_t count = control_.Read(buffer, sizeof(buffer))) {
    status.append(buffer, count);
  }
  {
    std::lock_guard hold(lock_);
    end_reason_ = status.empty() ? "ended together with its supervisor" : DescribeStatus(status);
  }
  SetEvent(ended_.get());
}

}  // namespace cefedition
