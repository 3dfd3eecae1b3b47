# What queues that write PDF files have made; for scripts that wait for it.

# newest_job PATTERN: the last file of that name in the folder $output that is newer than the file
# $work/before; nothing as long as there is none. A file that the queue renames while it is looked at is
# there the next time.
newest_job() {
  { find "$output" -name "$1" -newer "$work/before" 2>/dev/null || true; } | sort | tail -1
}

# wait_for_job PATTERN: sets `job` to the last file of that name once it is whole; to nothing if none comes
# within twenty seconds.
wait_for_job() {
  for _ in $(seq 100); do
    job=$(newest_job "$1")
    if [ -n "$job" ] && pdfinfo "$job" >/dev/null 2>&1; then return; fi
    sleep 0.2
  done
}
