; Quilom++ installer: a per-user install that needs no administrator rights.
;
; The program writes its settings into "Sorvin\" beside its executable, so it must live in a
; folder the user can write: $LOCALAPPDATA\Programs\Quilom++ by default.
;
; Defined by scripts/package.sh on the makensis command line:
;   VERSION   major.minor.revision, from the build's generated version.hpp
;   ARCH      win64 or win32
;   STAGE     the staged files: app\ (what is installed as it is), defaults\ (the shipped
;             settings files), uninstall_files.nsh (the shipped files, for the uninstaller)
;   OUTFILE   the installer to write
;
; Upgrades: shipped data files are replaced; the user's settings files are never overwritten.
; The new defaults go to "Defaults\Sorvin\" and `quilom settings-merge` adds keys a newer
; version needs to the user's files, keeping every value the user set.
;
; Uninstall: asks before removing the user's settings and own keymaps (any file in the data
; tree that the installer did not put there, and every settings file). A silent uninstall (/S)
; keeps them unless /REMOVEUSERDATA is given too.
;
; Silent install (/S): installs every section that is on by default, start-up link included.

; The 64-bit package gets a 64-bit installer: it runs wherever the program can (a 32-bit
; installer would not start on systems without 32-bit support, Wine's 64-bit-only prefixes
; among them).
!if "${ARCH}" == "win64"
  Target amd64-unicode
!else
  Unicode true
!endif
RequestExecutionLevel user
SetCompressor /SOLID lzma

!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"

!define PRODUCT "Quilom++"
!define EXE "Quilom++.exe"
!define STARTUP_LINK "QuilomPP.url"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quilom++"
!define MAIN_WINDOW_TITLE "Quilom++ : Direct Tamil typing in all applications, or in a single application, with a set of tools"
!define HELP_PAGE "Sorvin\Indic Direct Typer\help\getting-started.html"

Name "${PRODUCT} ${VERSION}"
Caption "${PRODUCT} ${VERSION} (${ARCH}) Setup"
BrandingText "${PRODUCT} ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$LOCALAPPDATA\Programs\${PRODUCT}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
ShowInstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${PRODUCT} ${VERSION} Setup"
VIAddVersionKey "LegalCopyright" "The ${PRODUCT} developers"

!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE "Welcome to ${PRODUCT} ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "${PRODUCT} lets you type Tamil (and other Indic languages) in any program from your English keyboard: type vaNakkam thamizh and it comes out in Tamil letters.$\r$\n$\r$\nIt installs for you alone, in your own folder; no administrator rights are needed.$\r$\n$\r$\nAn earlier ${PRODUCT} in the same folder is upgraded: your settings and your own keymaps are kept."
!define MUI_FINISHPAGE_RUN "$INSTDIR\${EXE}"
!define MUI_FINISHPAGE_RUN_TEXT "Start ${PRODUCT} now"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\${HELP_PAGE}"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show how to start typing Tamil"

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running Quilom++ holds its files open. Silent runs give up at once (exit code 2) rather than
; leave a half-replaced program.
!macro WaitUntilQuilomIsClosed
  ${Do}
    FindWindow $0 "" "${MAIN_WINDOW_TITLE}"
    ${If} $0 == 0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Quilom++ is running. Please close it (right click its icon near the clock and choose to exit), then click Retry." /SD IDCANCEL IDRETRY quilom_retry
    SetErrorLevel 2
    Quit
    quilom_retry:
  ${Loop}
!macroend

Function .onInit
  !insertmacro WaitUntilQuilomIsClosed
FunctionEnd

Section "${PRODUCT} (required)" SecProgram
  SectionIn RO
  SetShellVarContext current
  SetOutPath "$INSTDIR"
  SetOverwrite on
  File /r "${STAGE}\app\*.*"

  ; The user's settings files: a fresh install gets the defaults; an upgrade keeps the user's.
  SetOverwrite off
  SetOutPath "$INSTDIR\Sorvin"
  File /r "${STAGE}\defaults\Sorvin\*.*"
  SetOverwrite on
  SetOutPath "$INSTDIR\Defaults\Sorvin"
  File /r "${STAGE}\defaults\Sorvin\*.*"

  DetailPrint "Bringing your settings up to ${PRODUCT} ${VERSION}..."
  nsExec::ExecToLog '"$INSTDIR\quilom.exe" settings-merge "$INSTDIR\Defaults\Sorvin" "$INSTDIR\Sorvin"'
  Pop $0
  ${If} $0 != 0
    DetailPrint "Some settings files could not be brought up to date (code $0); they were left as they were."
  ${EndIf}

  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk" "$INSTDIR\${EXE}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\How to start typing.lnk" "$INSTDIR\${HELP_PAGE}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Uninstall ${PRODUCT}.lnk" "$INSTDIR\Uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT} ${VERSION} (${ARCH})"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The ${PRODUCT} developers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${EXE}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; The same three values, in the same order, as the program's own "StartQuilom++ WithWindows"
; choice writes, so that the program sees the link as its own and can remove it.
Section "Start with Windows" SecStartup
  SetShellVarContext current
  CreateDirectory "$SMSTARTUP"
  WriteINIStr "$SMSTARTUP\${STARTUP_LINK}" "InternetShortcut" "URL" "file:///$INSTDIR\${EXE}"
  WriteINIStr "$SMSTARTUP\${STARTUP_LINK}" "InternetShortcut" "IconIndex" "0"
  WriteINIStr "$SMSTARTUP\${STARTUP_LINK}" "InternetShortcut" "IconFile" "$INSTDIR\${EXE}"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "The typing program, the fonts converter, the text tools and the quilom command."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecStartup} "Puts a link in your Startup folder, so that Tamil typing is ready each time you log on. You can change this later in the program's general settings."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Var RemoveUserData

Function un.onInit
  !insertmacro WaitUntilQuilomIsClosed
  StrCpy $RemoveUserData "no"
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/REMOVEUSERDATA" $1
  ${IfNot} ${Errors}
    StrCpy $RemoveUserData "yes"
  ${ElseIfNot} ${Silent}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Also remove your ${PRODUCT} settings and your own keymaps?$\r$\n$\r$\nChoose No to keep them: installing ${PRODUCT} into $INSTDIR again will use them." IDNO keep
    StrCpy $RemoveUserData "yes"
    keep:
  ${EndIf}
FunctionEnd

Section "Uninstall"
  SetShellVarContext current
  ; The link points at this folder's program only; it is useless once the program is gone.
  ReadINIStr $0 "$SMSTARTUP\${STARTUP_LINK}" "InternetShortcut" "URL"
  ${If} $0 == "file:///$INSTDIR\${EXE}"
    Delete "$SMSTARTUP\${STARTUP_LINK}"
  ${EndIf}
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\How to start typing.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\Uninstall ${PRODUCT}.lnk"
  RMDir "$SMPROGRAMS\${PRODUCT}"

  !include "${STAGE}\uninstall_files.nsh"
  RMDir /r "$INSTDIR\Defaults"
  ${If} $RemoveUserData == "yes"
    RMDir /r "$INSTDIR\Sorvin"
  ${EndIf}
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
