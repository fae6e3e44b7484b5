# SPDX-License-Identifier: GPL-3.0-or-later
# The tests of the command line that write a picture, a PDF or a workbook on their way: a build without the toolkit leaves them
# out, and has tests of its own (without_toolkit_test.cpp).
set(drawing_tests
    CurveCommand.WritesPicturesAndWorkbooksWithoutAWordOnStandardError
    DesignCommand.WritesCurvesAsTableAndPicture
    DesignCommand.WrongUsageIsToldInOneLine
    FitCommand.WritesFiles
    Formats/EndedStudy.LeavesTheOldFile/xlsx
    Formats/EndedStudy.LeavesTheOldFileWhereTheCallerIgnoresTheInterrupt/xlsx
    FailingRuns.NoFailureOfAFileOperationLosesAnOutput
    LostFiles.APipeOrADeviceIsRefusedAsAnOutputOfEveryFormat
    LostFiles.AnInterruptAtAnyFileOperationLeavesNothingBehind
    Manners.AFolderReceivesFilesOfTheFormatNamed
    Manners.AReaderThatHasSeenEnoughLeavesNothingBehind
    Manners.StandardOutputTakesPdfWorkbooksAndObjects
    Manners.StandardOutputTakesWhatAFileWould
    PlanCommand.WritesPicturesAndATable
    ResultsCommand.WritesJsonAndPdf
    RiskCommand.TextAndPictures
    RowRiskCommand.DrawsMapsAndCurvesOfProbabilities
    SharedPlaces.AFileOfSeveralNamesKeepsThemAndALineTellsOfIt
    SharedPlaces.ALinkOfSomebodyElseIsNoOutput
    SharedPlaces.NothingIsLeftOfWhatGoesToStandardOutput
    SharedPlaces.OneOfThreeRunsAtOnceMakesTheFile
    Streams.ATemporaryFolderThatIsMissingIsNotNeeded
    Streams.DrawnOutputsKeepTheBytesOfTheirNames
    SweepCommand.ARefusedRowGivesStatusOneInEveryForm
    SweepCommand.WritesEveryKindOfFile
    SweepCommand.WrongUsageIsToldInOneLine)
