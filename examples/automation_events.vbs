' SPDX-License-Identifier: MIT
' Hears the control's events, in a host that connects them: vkr-example-script-host.
Option Explicit

Sub entry_TabChange(intTab)
    host.Print "TabChange " & intTab
End Sub

Sub entry_UnloadRequest(enumMode)
    host.Print "UnloadRequest " & enumMode
End Sub

Dim company
Set company = CreateObject("VKR_Company.Company")
company.ReadCsv host.Argument, "AAPL"
Set entry.objCompany = company
entry.SetNext
entry.SetNext
entry.CurrentTab = 3
entry.CurrentTab = 1
entry.SetPrevious
host.Print "DONE"
