; Installer of the plug-in. makensis needs: -DVERSION, -DFILES (folder that holds plugins/), -DOUTPUT,
; -DSIZE_KB. Runs silently with /S; /D=FOLDER, last, names the folder of the host.
Target amd64-unicode  ; like the plug-in
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillet"
!define PLUGIN_FOLDER "$INSTDIR\plugins\quillet"

Name "Quillet ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Arvenhold"
InstallDirRegKey HKLM "Software\Quillet" "HostFolder"
BrandingText " "

!define MUI_ICON "${FILES}/plugins/quillet/quillet_data/edit.ico"
!define MUI_UNICON "${FILES}/plugins/quillet/quillet_data/edit.ico"
!define MUI_ABORTWARNING
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(hostFolder)"
!insertmacro MUI_PAGE_LICENSE "${FILES}/plugins/quillet/licences/Quillet.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "Polish"
!insertmacro MUI_LANGUAGE "Portuguese"
!insertmacro MUI_LANGUAGE "Italian"

LangString hostFolder ${LANG_ENGLISH} "Choose the folder in which Arvenhold is installed."
LangString hostFolder ${LANG_GERMAN} "Wählen Sie den Ordner, in dem Arvenhold installiert ist."
LangString hostFolder ${LANG_FRENCH} "Choisissez le dossier dans lequel Arvenhold est installé."
LangString hostFolder ${LANG_SPANISH} "Elija la carpeta en la que está instalado Arvenhold."
LangString hostFolder ${LANG_POLISH} "Wybierz folder, w którym zainstalowano program Arvenhold."
LangString hostFolder ${LANG_PORTUGUESE} "Escolha a pasta em que o Arvenhold está instalado."
LangString hostFolder ${LANG_ITALIAN} "Scegliere la cartella in cui è installato Arvenhold."

LangString inUse ${LANG_ENGLISH} "The plug-in is in use. Close Arvenhold and try again."
LangString inUse ${LANG_GERMAN} "Das Plug-in ist in Gebrauch. Schließen Sie Arvenhold und versuchen Sie es erneut."
LangString inUse ${LANG_FRENCH} "Le module est en cours d'utilisation. Fermez Arvenhold et réessayez."
LangString inUse ${LANG_SPANISH} "El complemento está en uso. Cierre Arvenhold e inténtelo de nuevo."
LangString inUse ${LANG_POLISH} "Wtyczka jest używana. Zamknij program Arvenhold i spróbuj ponownie."
LangString inUse ${LANG_PORTUGUESE} "O plug-in está em uso. Feche o Arvenhold e tente novamente."
LangString inUse ${LANG_ITALIAN} "Il plug-in è in uso. Chiudere Arvenhold e riprovare."

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "Quillet"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Installs the property editor Quillet"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "Copyright © 2026 Quillet developers"

; A library that a running host has loaded can be opened, but not for writing.
!macro REFUSE_WHEN_IN_USE
    ${If} ${FileExists} "${PLUGIN_FOLDER}\quillet.dll"
        ClearErrors
        FileOpen $0 "${PLUGIN_FOLDER}\quillet.dll" a
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(inUse)" /SD IDOK
            SetErrorLevel 2
            Abort
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

Function .onInit
    SetRegView 64
FunctionEnd

Function un.onInit
    SetRegView 64
    ; The uninstaller lies in plugins\quillet.
    GetFullPathName $INSTDIR "$INSTDIR\..\.."
FunctionEnd

Section
    !insertmacro REFUSE_WHEN_IN_USE
    SetOutPath "$INSTDIR"
    File /r "${FILES}/plugins"
    WriteUninstaller "${PLUGIN_FOLDER}\uninstall.exe"
    WriteRegStr HKLM "Software\Quillet" "HostFolder" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Quillet"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "${PLUGIN_FOLDER}\quillet_data\edit.ico"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Quillet developers"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"${PLUGIN_FOLDER}\uninstall.exe"'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; Takes away what was installed, file by file: the user's options and whatever else lies there stay.
Section Uninstall
    !insertmacro REFUSE_WHEN_IN_USE
    !include "${UNINSTALL_LIST}"
    Delete "${PLUGIN_FOLDER}\uninstall.exe"
    RMDir "${PLUGIN_FOLDER}\licences"
    RMDir "${PLUGIN_FOLDER}\quillet_data"
    RMDir "${PLUGIN_FOLDER}"
    RMDir "$INSTDIR\plugins"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    DeleteRegKey HKLM "Software\Quillet"
SectionEnd
