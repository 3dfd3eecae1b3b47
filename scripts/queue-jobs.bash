# What queues that write PDF files have made; for scripts that wait for it.

# newest_job PATTERN: the last file of that name in the folder $output that is newer than the file
# $work/before; nothing as long as there is none. A file that the queue renames while it is looked at is
# there the next time.
newest_job() {
  { find "$output" -name "$1" -newer "$work/before" 2>/dev/null || true; } | sort | tail -1
}
