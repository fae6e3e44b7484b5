#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Start-up of the program beside that of an empty main window linked to the same libraries, on Xvfb: time to the first
# paint, processor time and resident memory, and beside speedcrunch, featherpad and focuswriter. The configuration file is there and the start-up windows are off.
# Usage: bench/start_up.sh [RUNS] [BUILD_FOLDER]   after a build with TARVOKOL_BENCH
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-15}
build=$(realpath "${2:-build/release}")
folder=$(mktemp -d)
server=""
trap '[ -z "$server" ] || kill "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT

mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
server=$!
read -r number <"$folder/display"
export DISPLAY=":$number" QT_QPA_PLATFORM=xcb HOME="$folder" XDG_RUNTIME_DIR="$folder"
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_DOCUMENTS_DIR XDG_CURRENT_DESKTOP
mkdir -p "$HOME/Documents/MyOLTEK"
cat >"$HOME/Documents/MyOLTEK/TARVOKOL.INI" <<SETTINGS
[Version]
INIFileVersion=050924
[Settings]
DefaultUnits=0
DisplayHistoryWin=0
MaxDisplaySize=2048
DisplayFontName=Arial
DisplayFontSize=10
DisplayFontBold=0
DisplayFontItalic=0
KeepFileNames=1
ShowDisclaim=0
MaxMainMenu=0
EnableMainMenuToolbar=1
ShortRecentFiles=0
LoadLastInputFile=0
RemindAnnualUpdates=0
CopyExampleFiles=1
ExternalEditor=Notepad.exe
DataPath=$HOME/Documents/MyOLTEK/
FileExtension=TKL
[FileMenu]
MaxLastFiles=0
[TextBrowse]
BrowseFontName=Arial
BrowseFontSize=10
BrowseFontBold=0
BrowseFontItalic=0
BrowseDefaultFilter=
BrowseUseNotepad=0
[Graph]
GraphSetParams=0
GridStyle=0
GraphStyle=3
CurveLegend=1
SymbolSize=5
GraphUnits=0
GraphTitle=Tarvo Panel Stability Evaluation - KOL
XAxisTitle0=
XAxisTitle1=
XAxisTitle2=
XAxisTitleS1=
XAxisTitleS2=
YAxisTitle0=
YAxisTitle1=
YAxisTitle2=
YAxisTitleS0=
YAxisTitleS1=
[TARVOKOLOptions]
OutputStrUnits=0
OutputStrGradUnits=1
ShowInputScreenOnLoad=1
ViewChildWindow=1
PrintModuleHeader=1
PlotEntryDims=1
PlotXcutDims=0
PlotSingleXcutDims=0
PlotGobExtLoose=0
PlotGobDims=0
PlotRangeMin=50
PlotRangeMax=100
DefaultAbutment=21
DefaultSFWeb=1.6
DefaultSFBarrier=2
PrintPlotReminder=1
AskOfficeInstall=1
SETTINGS

# Other small programs of Debian, where they are installed, in the same turns.
neighbours=()
for program in speedcrunch featherpad focuswriter; do
    ! command -v "$program" >/dev/null || neighbours+=("$(command -v "$program")")
done
"$build/bench/first_paint" "$runs" "$build/bench/empty_window" "$build/bin/tarvokol" ${neighbours[@]+"${neighbours[@]}"}
