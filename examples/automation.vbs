' SPDX-License-Identifier: MIT
' Creates the control and a record, and edits through the interface:
'
'     cscript //nologo automation.vbs <folder with the sample companies>
'
' It prints what it sees, DONE last.
Option Explicit

Dim entry, company, settings, earnings, keyCode, shift

Set company = CreateObject("VKR_Company.Company")
company.ReadCsv WScript.Arguments(0), "AAPL"
WScript.Echo company.Name & " (" & company.Symbol & ")"

Set settings = company.Settings
settings.intUnit = 6
settings.strCurSymbol = "$"

Set entry = CreateObject("VKR_DataEntry.VKRDataEntry")
entry.vntExchange = Array("NYSE", "NASDAQ")
entry.VisibleQuarters = 12
Set entry.objCompany = company
WScript.Echo "quarterly data: " & entry.blnExistsQuarterlyData
WScript.Echo "changed: " & entry.blnDirty

entry.CurrentTab = 2
entry.SetNext
WScript.Echo "tab: " & entry.CurrentTab

keyCode = 40
shift = 0
entry.ScrollMouse keyCode, shift

company.CurrentPrice = 201.5
earnings = company.YEPSSeries
earnings(1) = 7.25
company.YEPSSeries = earnings
earnings = entry.objCompany.YEPSSeries
WScript.Echo "earnings of the last year: " & earnings(1)
WScript.Echo "price: " & entry.objCompany.CurrentPrice

' Where figures come from is told with their fields; a corner marks those that were not typed.
entry.Origins = Array(Array("TotalDebt", Empty, "Imported from a filing.", True), _
                      Array("YEPSSeries", 1, "Typed.", False))
WScript.Echo "brought on show: " & entry.ShowFigure("YEPSSeries", 1) & ", tab " & entry.CurrentTab

' What fails by contract is an error, with its description.
On Error Resume Next
entry.BorderStyle = 7
WScript.Echo Err.Description
Err.Clear
company.ReadCsv WScript.Arguments(0), "NONE"
WScript.Echo "no such company: " & (Err.Number <> 0)
Err.Clear
On Error GoTo 0

Set entry.objCompany = Nothing
WScript.Echo "an empty record: [" & entry.objCompany.Name & "]"
WScript.Echo "DONE"
