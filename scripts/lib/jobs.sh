# Sourced by scripts that play scenarios or package them. Each function whose name ends in jobs prints
# jobs of the workbench, one per line: preset, Outlook version, scenario, options.

# Writes the address books that the scenarios read.
make_address_books() {  # folder
  scripts/make-address-book 5000 "$1/5000.vcf" >/dev/null
  scripts/make-address-book 20000 "$1/20000-lists.vcf" --lists >/dev/null
}

# Each scenario with badly behaved add-ins, in the oldest and the newest Outlook.
neighbour_jobs() {
  local scenario outlook
  for scenario in tests/scenarios/*.scn; do
    for outlook in "win32 11" "win64 16"; do
      echo "$outlook $scenario --neighbours --stuck 20"
    done
  done
}

# Each scenario in all its Outlook versions.
scenario_jobs() {
  local scenario outlook
  for scenario in tests/scenarios/*.scn; do
    for outlook in "win32 11" "win32 12" "win64 14" "win64 16" "win32 16"; do
      echo "$outlook $scenario"
    done
  done
  # Repeats some of them with badly behaved add-ins: every command must be fast.
  for scenario in start_with_base incoming_call disconnection contact_windows unplug_and_replug; do
    echo "win64 16 tests/scenarios/$scenario.scn --neighbours --stuck 20"
  done
}

# The process ends with everything alive; afterwards the settings must be saved.
ending_jobs() {
  local scenario outlook
  for outlook in "win32 11" "win32 16" "win64 16"; do
    for scenario in tests/scenarios/process_end/*.scn; do
      echo "$outlook $scenario"
    done
  done
}

# One session per call of the object model: this call fails, or something else happens inside it.
sweep_jobs() {  # scenario, options, "preset version"...
  local scenario=$1 options=$2 outlook
  shift 2
  for outlook in "$@"; do
    echo "$outlook $scenario --sweep${options:+ $options}"
  done
}

# A failure or a release inside every call of a start.
start_sweep_jobs() {
  local scenario=tests/scenarios/sweep/start.scn
  sweep_jobs "$scenario" "--outcomes tests/scenarios/sweep/idle_after.txt" "win32 11" "win64 16"
  # Long and short jobs alternate, so that two workers finish together.
  sweep_jobs "$scenario" "--inside release" "win64 16" "win32 11"
}
