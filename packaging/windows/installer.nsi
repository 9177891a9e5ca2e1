; SPDX-License-Identifier: MIT
; The installer of VKRDataEntry.ocx, for the machine (/AllUsers) or for one user (/CurrentUser), also
; without a window (/S). scripts/windows-package gives it: version, stage (what goes in), output, licence.
Unicode true
!include LogicLib.nsh
!include FileFunc.nsh

!define name "VKRDataEntry"
!define uninstallKey "Software\Microsoft\Windows\CurrentVersion\Uninstall\${name}"
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "${name}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${uninstallKey}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh

Name "${name} ${version}"
OutFile "${output}"
SetCompressor /SOLID lzma
BrandingText " "
VIProductVersion "${version}.0"
VIAddVersionKey ProductName "${name}"
VIAddVersionKey ProductVersion "${version}"
VIAddVersionKey FileVersion "${version}"
VIAddVersionKey FileDescription "Installer of ${name}"
VIAddVersionKey LegalCopyright "MIT licence"
VIAddVersionKey CompanyName "The VKRDataEntry authors"

!insertmacro MUI_PAGE_LICENSE "${licence}"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Runs regsvr32 on the library: `install` is /u or nothing. The result is in $0; 0 is success.
!macro register install
    ${If} $MultiUser.InstallMode == "AllUsers"
        ExecWait '"$SYSDIR\regsvr32.exe" /s ${install} "$INSTDIR\VKRDataEntry.ocx"' $0
    ${Else}
        ExecWait '"$SYSDIR\regsvr32.exe" /s ${install} /n /i:user "$INSTDIR\VKRDataEntry.ocx"' $0
    ${EndIf}
!macroend

!macro inView
    SetRegView 64
!macroend

Function .onInit
    !insertmacro inView
    !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
    !insertmacro inView
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
    SetOutPath "$INSTDIR"
    ; A program may have the library open.
    ClearErrors
    SetOverwrite try
    File /r "${stage}/*"
    ${If} ${Errors}
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "A file could not be written. Close the programs that use ${name}, and try again." /SD IDOK
        Abort
    ${EndIf}
    !insertmacro register ""
    ${If} $0 <> 0
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "${name} could not be registered (regsvr32 ends with $0)." /SD IDOK
        Abort
    ${EndIf}
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${uninstallKey}" "DisplayName" "${name}"
    WriteRegStr SHCTX "${uninstallKey}" "DisplayVersion" "${version}"
    WriteRegStr SHCTX "${uninstallKey}" "Publisher" "The VKRDataEntry authors"
    WriteRegStr SHCTX "${uninstallKey}" "DisplayIcon" "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${uninstallKey}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${uninstallKey}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${uninstallKey}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode'
    WriteRegDWORD SHCTX "${uninstallKey}" "NoModify" 1
    WriteRegDWORD SHCTX "${uninstallKey}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${uninstallKey}" "EstimatedSize" $0
SectionEnd

Section Uninstall
    !insertmacro register "/u"
    ; What was installed, and nothing that somebody else has put beside it.
    !include "${uninstalled}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    DeleteRegKey SHCTX "${uninstallKey}"
SectionEnd
