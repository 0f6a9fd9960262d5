<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BootLoaderLink</name>
    <message>
        <source>Start to update, please keep device power on.</source>
        <translation>Update beginnt, Gerät eingeschaltet lassen.</translation>
    </message>
    <message>
        <source>Waiting for device response, loop %1...</source>
        <translation>Warten auf Antwort des Geräts, Versuch %1...</translation>
    </message>
    <message>
        <source>Update failed.</source>
        <translation>Update fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Error when waiting for device.</source>
        <translation>Keine Antwort vom Gerät.</translation>
    </message>
    <message>
        <source>Error when waiting for hardware match flag.</source>
        <translation>Keine Rückmeldung zum Hardware-Vergleich.</translation>
    </message>
    <message>
        <source>Hardware does not match type 0x%1, version 0x%2.</source>
        <translation>Hardware passt nicht zu Typ 0x%1, Version 0x%2.</translation>
    </message>
    <message>
        <source>Hardware type 0x%1, hardware version 0x%2 matched.</source>
        <translation>Hardware-Typ 0x%1, Hardware-Version 0x%2 stimmt.</translation>
    </message>
    <message>
        <source>Transferring... %1 %2% done.</source>
        <translation>Übertragung... %1 %2%.</translation>
    </message>
    <message>
        <source>Failed: Target is not responding.</source>
        <translation>Fehlgeschlagen: Das Gerät antwortet nicht.</translation>
    </message>
    <message>
        <source>CRC error. File damaged.</source>
        <translation>CRC-Fehler. Datei beschädigt.</translation>
    </message>
    <message>
        <source>Transfer 100% done.</source>
        <translation>Übertragung zu 100% abgeschlossen.</translation>
    </message>
    <message>
        <source>Device said: 0x%1</source>
        <translation>Antwort des Geräts: 0x%1</translation>
    </message>
</context>
<context>
    <name>CalibrationProcedure</name>
    <message>
        <source>Prepare calibration base and take Vanto up then power on,
presss OK when Vanto is ready.</source>
        <translation>Kalibriersockel bereitlegen, Vanto hochnehmen und einschalten;
OK drücken, sobald Vanto bereit ist.</translation>
    </message>
    <message>
        <source>Vanto will reboot if not in calibrating state &amp; calibration key is correct,
press OK when ready</source>
        <translation>Ist Vanto nicht im Kalibrierzustand und stimmt der Schlüssel, startet Vanto neu;
OK drücken, wenn alles bereit ist</translation>
    </message>
    <message>
        <source>Wait for Vanto reboots and beeps 8 times,
press OK when beep finished</source>
        <translation>Warten, bis Vanto neu startet und 8-mal piept;
danach OK drücken</translation>
    </message>
    <message>
        <source>Put Vanto onto calibration base &amp; push it tightly, move thumb root to right pos, press OK when ready</source>
        <translation>Vanto auf den Kalibriersockel setzen und fest andrücken, Daumenwurzel in die richtige Position fahren, dann OK drücken</translation>
    </message>
    <message>
        <source>Take Vanto up,
press OK when ready</source>
        <translation>Vanto hochnehmen,
dann OK drücken</translation>
    </message>
    <message>
        <source>Move thumb root to right position,
press OK when ready</source>
        <translation>Daumenwurzel in die richtige Position fahren,
dann OK drücken</translation>
    </message>
    <message>
        <source>Calibration finished, you may power off and power on the Vanto now to see the result</source>
        <translation>Kalibrierung abgeschlossen; Vanto jetzt aus- und wieder einschalten, um das Ergebnis zu sehen</translation>
    </message>
    <message>
        <source>Please input calibration key:</source>
        <translation>Kalibrierschlüssel:</translation>
    </message>
    <message>
        <source>Invalid calibration key</source>
        <translation>Ungültiger Kalibrierschlüssel</translation>
    </message>
</context>
<context>
    <name>FirmwareUpdater</name>
    <message>
        <source>Serial port not available</source>
        <translation>Kein serieller Port verfügbar</translation>
    </message>
    <message>
        <source>Power off the device and remove app other devices from bus, press OK when ready.
Power on the device when prompted.</source>
        <translation>Gerät ausschalten und alle anderen Geräte vom Bus trennen, dann OK drücken.
Gerät nach Aufforderung einschalten.</translation>
    </message>
    <message>
        <source>Please select firmware source:</source>
        <translation>Quelle der Firmware wählen:</translation>
    </message>
    <message>
        <source>Open update file</source>
        <translation>Update-Datei öffnen</translation>
    </message>
    <message>
        <source>Upgrade firmware file (*.upd)</source>
        <translation>Firmware-Update-Datei (*.upd)</translation>
    </message>
    <message>
        <source>Hardware &amp; type not read, proceed?</source>
        <translation>Hardware-Typ und -Version wurden nicht gelesen, fortfahren?</translation>
    </message>
    <message>
        <source>Please select hardware type/version:</source>
        <translation>Hardware-Typ/-Version wählen:</translation>
    </message>
    <message>
        <source>Please select firmware type:</source>
        <translation>Art der Firmware wählen:</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>Öffnen der Datei „%1“ fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Invalid update file</source>
        <translation>Ungültige Update-Datei</translation>
    </message>
    <message>
        <source>Firmware updated successfully</source>
        <translation>Firmware erfolgreich aktualisiert</translation>
    </message>
    <message>
        <source>Firmware update in progress. Please wait until it finishes.</source>
        <translation>Die Firmware wird aktualisiert, bitte das Ende abwarten.</translation>
    </message>
    <message>
        <source>Reading the list of firmware...</source>
        <translation>Liste der Firmware wird gelesen...</translation>
    </message>
    <message>
        <source>Downloading the firmware...</source>
        <translation>Firmware wird heruntergeladen...</translation>
    </message>
</context>
<context>
    <name>HandIdentity</name>
    <message>
        <source>firmware V%1.%2.%3</source>
        <translation>Firmware V%1.%2.%3</translation>
    </message>
    <message>
        <source>hardware %1</source>
        <translation>Hardware %1</translation>
    </message>
</context>
<context>
    <name>HandInformation</name>
    <message>
        <source>not supported</source>
        <translation>nicht unterstützt</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>Knoten-ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Protocol version</source>
        <translation>Protokollversion</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Firmware-Version</translation>
    </message>
    <message>
        <source>Hardware type</source>
        <translation>Hardware-Typ</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>Bootloader</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>Battery voltage</source>
        <translation>Batteriespannung</translation>
    </message>
    <message>
        <source>Button count</source>
        <translation>Tastendrücke</translation>
    </message>
    <message>
        <source>Usage, total</source>
        <translation>Nutzung, gesamt</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Nutzung</translation>
    </message>
    <message>
        <source>Thumb root, raw position</source>
        <translation>Daumenwurzel, Rohposition</translation>
    </message>
    <message>
        <source>Thumb root, preset</source>
        <translation>Daumenwurzel, Voreinstellung</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>Zielposition</translation>
    </message>
    <message>
        <source>Angle (0.01°)</source>
        <translation>Winkel (0,01°)</translation>
    </message>
    <message>
        <source>Target angle (0.01°)</source>
        <translation>Zielwinkel (0,01°)</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
</context>
<context>
    <name>HandTask</name>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>Die Hand antwortet nicht.</translation>
    </message>
    <message>
        <source>The port is no longer available.</source>
        <translation>Der Port ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The hand has been closed or halted.</source>
        <translation>Die Hand wurde geschlossen oder angehalten.</translation>
    </message>
    <message>
        <source>Another hand answers. Nothing is written to it.</source>
        <translation>Eine andere Hand antwortet. Bei ihr wird nichts gesetzt.</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Nothing is written to it.</source>
        <translation>Knoten 255 ist jede Hand am Bus. Dort wird nichts gesetzt.</translation>
    </message>
</context>
<context>
    <name>NodeDialogs</name>
    <message>
        <source>Both</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source>Node (decimal or 0x...):</source>
        <translation>Knoten (dezimal oder 0x...):</translation>
    </message>
    <message>
        <source>Protocol:</source>
        <translation>Protokoll:</translation>
    </message>
    <message>
        <source>Enter a number from 0 to 255.</source>
        <translation>Geben Sie eine Zahl von 0 bis 255 ein.</translation>
    </message>
    <message>
        <source>First node:</source>
        <translation>Erster Knoten:</translation>
    </message>
    <message>
        <source>Last node:</source>
        <translation>Letzter Knoten:</translation>
    </message>
    <message>
        <source>The last node must not be below the first one.</source>
        <translation>Der letzte Knoten darf nicht unter dem ersten liegen.</translation>
    </message>
    <message>
        <source>Node 0 is available only over SerialCtrl. Choose this protocol.</source>
        <translation>Knoten 0 gibt es nur über SerialCtrl. Wählen Sie dieses Protokoll.</translation>
    </message>
</context>
<context>
    <name>ParameterFile</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>Dies ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>line %1, offset %2</source>
        <translation>Zeile %1, Offset %2</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is larger than 1 MiB.</source>
        <translation>Die Datei ist größer als 1 MiB.</translation>
    </message>
    <message>
        <source>This is not valid JSON (%1): %2</source>
        <translation>Dies ist kein gültiges JSON (%1): %2</translation>
    </message>
    <message>
        <source>This is a sequence, not hand parameters.</source>
        <translation>Dies ist eine Sequenz, keine Parameterdatei einer Hand.</translation>
    </message>
    <message>
        <source>This is not a file of hand parameters: &quot;kind&quot; is not &quot;%1&quot;.</source>
        <translation>Dies ist keine Parameterdatei einer Hand: „kind“ ist nicht „%1“.</translation>
    </message>
    <message>
        <source>the file comes from a newer program (version %1, this program reads version %2)</source>
        <translation>die Datei stammt von einem neueren Programm (Version %1, dieses Programm liest Version %2)</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>expected a time such as &quot;2026-11-22T06:25:17Z&quot;, found %1</source>
        <translation>Zeitangabe wie „2026-11-22T06:25:17Z“ erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected an integer from 0 to 255, found %1</source>
        <translation>ganze Zahl von 0 bis 255 erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>%1 is not valid</source>
        <translation>%1 ist ungültig</translation>
    </message>
    <message>
        <source>there is no such finger</source>
        <translation>diesen Finger gibt es nicht</translation>
    </message>
    <message>
        <source>expected an object, found %1</source>
        <translation>Objekt erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected a text, found %1</source>
        <translation>Text erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>expected an array of %1 numbers, found %2</source>
        <translation>Array mit %1 Zahlen erwartet, %2 gefunden</translation>
    </message>
    <message>
        <source>expected a number, found %1</source>
        <translation>Zahl erwartet, %1 gefunden</translation>
    </message>
    <message>
        <source>unknown key</source>
        <translation>unbekannter Schlüssel</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>Current limit</source>
        <translation>Stromgrenze</translation>
    </message>
    <message>
        <source>Force limit</source>
        <translation>Kraftgrenze</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>Positionsgrenzen</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>Selbsttest-Stufe</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>Signaltöne</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Zeigefinger</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittelfinger</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Ringfinger</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>Kleiner Finger</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>Daumenwurzel</translation>
    </message>
    <message>
        <source>The file does not have this value.</source>
        <translation>Die Datei enthält diesen Wert nicht.</translation>
    </message>
    <message>
        <source>The hand does not give this value.</source>
        <translation>Die Hand liefert diesen Wert nicht.</translation>
    </message>
    <message>
        <source>Not representable: over Modbus gains range from 0 to 655.35.</source>
        <translation>Nicht darstellbar: Über Modbus reichen Verstärkungen von 0 bis 655,35.</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>Knoten-ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Hardware</source>
        <translation>Hardware</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>Bootloader</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>%1: not a number</source>
        <translation>%1: keine Zahl</translation>
    </message>
    <message>
        <source>%1: no answer</source>
        <translation>%1: keine Antwort</translation>
    </message>
    <message>
        <source>%1: refused (result %2, sub error %3)</source>
        <translation>%1: abgelehnt (Ergebnis %2, Unterfehler %3)</translation>
    </message>
    <message>
        <source>written</source>
        <translation>gesetzt</translation>
    </message>
    <message>
        <source>refused (result %1, sub error %2)</source>
        <translation>abgelehnt (Ergebnis %1, Unterfehler %2)</translation>
    </message>
    <message>
        <source>not kept (%1)</source>
        <translation>nicht übernommen (%1)</translation>
    </message>
    <message>
        <source>not kept</source>
        <translation>nicht übernommen</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>Not known: values range from 0 to %1.</source>
        <translation>Unbekannt: Die Werte reichen von 0 bis %1.</translation>
    </message>
    <message>
        <source>%1: no valid answer (result %2)</source>
        <translation>%1: keine gültige Antwort (Ergebnis %2)</translation>
    </message>
    <message>
        <source>no answer, the hand may have a part of it</source>
        <translation>keine Antwort, die Hand hat womöglich einen Teil davon</translation>
    </message>
</context>
<context>
    <name>PortError</name>
    <message>
        <source>No port is selected. Plug in the hand&apos;s adapter and click Refresh.</source>
        <translation>Kein Port gewählt. Adapter der Hand einstecken und „Aktualisieren“ drücken.</translation>
    </message>
    <message>
        <source>The port is no longer available. Plug the adapter in again and click Refresh.</source>
        <translation>Der Port ist nicht mehr da. Adapter wieder einstecken und „Aktualisieren“ drücken.</translation>
    </message>
    <message>
        <source>You do not have permission to use this port. It belongs to the group &quot;%1&quot;. To join that group, run
    sudo usermod -aG %1 $USER
and log in again.</source>
        <translation>Keine Berechtigung für diesen Port. Er gehört der Gruppe „%1“; ihr beitreten mit
    sudo usermod -aG %1 $USER
und neu anmelden.</translation>
    </message>
    <message>
        <source>Another program is using this port. Close it and try again. (ModemManager may use a new adapter for a few seconds.)</source>
        <translation>Ein anderes Programm benutzt diesen Port. Es schließen und erneut versuchen. (ModemManager belegt einen neuen Adapter einige Sekunden lang.)</translation>
    </message>
</context>
<context>
    <name>PortList</name>
    <message>
        <source>Serial number %1</source>
        <translation>Seriennummer %1</translation>
    </message>
    <message>
        <source>added by VANTO_PORTS</source>
        <translation>aus VANTO_PORTS</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>VantoSetting</source>
        <translation>VantoSetting</translation>
    </message>
</context>
<context>
    <name>StepEditors</name>
    <message>
        <source>Not stored. Press Return to send and store it.</source>
        <translation>Nicht gespeichert. Eingabetaste sendet und speichert den Wert.</translation>
    </message>
</context>
<context>
    <name>Theme</name>
    <message>
        <source>Please select style:</source>
        <translation>Farbschema wählen:</translation>
    </message>
</context>
<context>
    <name>UnitDisplay</name>
    <message>
        <source>degree</source>
        <translation>Grad</translation>
    </message>
</context>
<context>
    <name>UpdateFile</name>
    <message>
        <source>Processing update file - %1%...</source>
        <translation>Update-Datei wird verarbeitet - %1%...</translation>
    </message>
    <message>
        <source>Hardware type: 0x%1, ver: 0x%2</source>
        <translation>Hardware-Typ: 0x%1, Version: 0x%2</translation>
    </message>
    <message>
        <source>Invalid update file.</source>
        <translation>Ungültige Update-Datei.</translation>
    </message>
    <message>
        <source>File damaged.</source>
        <translation>Datei beschädigt.</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>Öffnen der Datei „%1“ fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>UpdateFirmware</name>
    <message>
        <source>Failed when openning port &apos;%1&apos;.</source>
        <translation>Öffnen von Port „%1“ fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>vanto::ActionMarkers</name>
    <message>
        <source>Write %1: P %2, I %3, D %4, G %5</source>
        <translation>%1 setzen: P %2, I %3, D %4, G %5</translation>
    </message>
    <message>
        <source>Write %1: current limit %2</source>
        <translation>%1 setzen: Stromgrenze %2</translation>
    </message>
    <message>
        <source>Write %1: force limit %2</source>
        <translation>%1 setzen: Kraftgrenze %2</translation>
    </message>
    <message>
        <source>Write %1: position limits %2, %3</source>
        <translation>%1 setzen: Positionsgrenzen %2, %3</translation>
    </message>
    <message>
        <source>Write self-test level %1</source>
        <translation>Selbsttest-Stufe %1 setzen</translation>
    </message>
    <message>
        <source>Write beep switch %1</source>
        <translation>Signaltöne %1 setzen</translation>
    </message>
    <message>
        <source>Write calibration</source>
        <translation>Kalibrierung setzen</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>Initialisieren</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>Kalibrieren</translation>
    </message>
    <message>
        <source>Set %1: %2</source>
        <translation>%1 bewegen: %2</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>Halt</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>Schritt %1</translation>
    </message>
    <message>
        <source>%1 (and %2 more)</source>
        <translation>%1 (und %2 weitere)</translation>
    </message>
</context>
<context>
    <name>vanto::BasicPage</name>
    <message>
        <source>Wait for command</source>
        <translation>Auf Befehl warten</translation>
    </message>
    <message>
        <source>Stretch only</source>
        <translation>Nur strecken</translation>
    </message>
    <message>
        <source>Full self-test</source>
        <translation>Voller Selbsttest</translation>
    </message>
    <message>
        <source>Basic Only</source>
        <translation>Nur grundlegende</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Unknown protocol</source>
        <translation>Unbekanntes Protokoll</translation>
    </message>
    <message>
        <source>Basic info loaded</source>
        <translation>Allgemeine Daten geladen</translation>
    </message>
    <message>
        <source>getSelfTestLevel(0x%1, ...) got invalid value &apos;%2&apos;</source>
        <translation>getSelfTestLevel(0x%1, ...) lieferte den ungültigen Wert „%2“</translation>
    </message>
    <message>
        <source>getBeepSwitch(0x%1, ...) got invalid value &apos;%1&apos;</source>
        <translation>getBeepSwitch(0x%1, ...) lieferte den ungültigen Wert „%1“</translation>
    </message>
    <message>
        <source>Please input new node id:</source>
        <translation>Neue Knoten-ID:</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, please wait for device rebooting then rescan devices</source>
        <translation>Knoten-ID von „0x%1“ auf „0x%2“ geändert; Neustart des Geräts abwarten, dann erneut suchen</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, need to rescan devices</source>
        <translation>Knoten-ID von „0x%1“ auf „0x%2“ geändert; bitte erneut suchen</translation>
    </message>
    <message>
        <source>Beep succeeded</source>
        <translation>Signalton ausgegeben</translation>
    </message>
    <message>
        <source>Invalid self-test level &apos;%1&apos;</source>
        <translation>Ungültige Selbsttest-Stufe „%1“</translation>
    </message>
    <message>
        <source>Set self-test level succeeded</source>
        <translation>Selbsttest-Stufe gesetzt</translation>
    </message>
    <message>
        <source>Invalid beep switch level &apos;%d&apos;</source>
        <translation>Ungültige Signalton-Einstellung „%d“</translation>
    </message>
    <message>
        <source>Set beep switch succeeded</source>
        <translation>Signalton-Einstellung gesetzt</translation>
    </message>
    <message>
        <source>Start init succeeded</source>
        <translation>Initialisierung gestartet</translation>
    </message>
    <message>
        <source>Reset succeeded</source>
        <translation>Zurückgesetzt</translation>
    </message>
    <message>
        <source>Firmware Version:</source>
        <translation>Firmware-Version:</translation>
    </message>
    <message>
        <source>Firmware Version</source>
        <translation>Firmware-Version</translation>
    </message>
    <message>
        <source>Protocol Version:</source>
        <translation>Protokollversion:</translation>
    </message>
    <message>
        <source>Protocol Version</source>
        <translation>Protokollversion</translation>
    </message>
    <message>
        <source>Hardware Type &amp; Version:</source>
        <translation>Hardware-Typ und -Version:</translation>
    </message>
    <message>
        <source>Hardware Type and Version</source>
        <translation>Hardware-Typ und -Version</translation>
    </message>
    <message>
        <source>Boot Loader Version:</source>
        <translation>Bootloader-Version:</translation>
    </message>
    <message>
        <source>Boot Loader Version</source>
        <translation>Bootloader-Version</translation>
    </message>
    <message>
        <source>Self Test Level:</source>
        <translation>Selbsttest-Stufe:</translation>
    </message>
    <message>
        <source>Self Test Level</source>
        <translation>Selbsttest-Stufe</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Set self-test level</source>
        <translation>Selbsttest-Stufe setzen</translation>
    </message>
    <message>
        <source>Beep Switch:</source>
        <translation>Signaltöne:</translation>
    </message>
    <message>
        <source>Beep Switch</source>
        <translation>Signaltöne</translation>
    </message>
    <message>
        <source>Set beep switch</source>
        <translation>Signalton-Einstellung setzen</translation>
    </message>
    <message>
        <source>Pos Calibration:</source>
        <translation>Pos.-Kalibrierung:</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Thumb calibrated start position</source>
        <translation>Daumen: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>~</source>
        <translation>~</translation>
    </message>
    <message>
        <source>Thumb calibrated end position</source>
        <translation>Daumen: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Zeigefinger</translation>
    </message>
    <message>
        <source>Index calibrated start position</source>
        <translation>Zeigefinger: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>Index calibrated end position</source>
        <translation>Zeigefinger: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittelfinger</translation>
    </message>
    <message>
        <source>Middle calibrated start position</source>
        <translation>Mittelfinger: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>Middle calibrated end position</source>
        <translation>Mittelfinger: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Ringfinger</translation>
    </message>
    <message>
        <source>Third calibrated start position</source>
        <translation>Ringfinger: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>Third calibrated end position</source>
        <translation>Ringfinger: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>Kleiner Finger</translation>
    </message>
    <message>
        <source>Little calibrated start position</source>
        <translation>Kleiner Finger: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>Little calibrated end position</source>
        <translation>Kleiner Finger: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>Daumenwurzel</translation>
    </message>
    <message>
        <source>Thumb root calibrated start position</source>
        <translation>Daumenwurzel: kalibrierte Startposition</translation>
    </message>
    <message>
        <source>Thumb root calibrated end position</source>
        <translation>Daumenwurzel: kalibrierte Endposition</translation>
    </message>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>Daumenwurzel-Pos.:</translation>
    </message>
    <message>
        <source>Thumb root position 1</source>
        <translation>Daumenwurzel: Position 1</translation>
    </message>
    <message>
        <source>Thumb root position 2</source>
        <translation>Daumenwurzel: Position 2</translation>
    </message>
    <message>
        <source>Thumb root position 3</source>
        <translation>Daumenwurzel: Position 3</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Set ID</source>
        <translation>ID setzen</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>Signalton</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>Initialisieren</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>Kalibrieren</translation>
    </message>
</context>
<context>
    <name>vanto::CalibratingDialog</name>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>Daumenwurzel-Pos.:</translation>
    </message>
    <message>
        <source>Thumb root position</source>
        <translation>Position der Daumenwurzel</translation>
    </message>
    <message>
        <source>The thumb root moves to this position at once</source>
        <translation>Die Daumenwurzel fährt sofort dorthin</translation>
    </message>
</context>
<context>
    <name>vanto::ConnectionView</name>
    <message>
        <source>The port has been lost. Check the cable.</source>
        <translation>Der Port ist verloren. Prüfen Sie das Kabel.</translation>
    </message>
    <message>
        <source>The hand does not answer. Check its power.</source>
        <translation>Die Hand antwortet nicht. Prüfen Sie ihre Stromversorgung.</translation>
    </message>
    <message>
        <source>The hand answers again</source>
        <translation>Die Hand antwortet wieder</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>Wieder verbunden</translation>
    </message>
    <message>
        <source>Another hand answers (%1). It has not been opened.</source>
        <translation>Eine andere Hand antwortet (%1). Sie wurde nicht geöffnet.</translation>
    </message>
    <message>
        <source>Choose a port and click Scan.</source>
        <translation>Wählen Sie einen Port und klicken Sie auf Suchen.</translation>
    </message>
    <message>
        <source>Hands that answer are added to the devices. Stop ends the scan.</source>
        <translation>Hände, die antworten, kommen in die Geräteliste. Stopp beendet die Suche.</translation>
    </message>
    <message>
        <source>The hand is ready.</source>
        <translation>Die Hand ist bereit.</translation>
    </message>
    <message>
        <source>Check the hand&apos;s power and its side of the cable.
It is asked once a second until it answers.</source>
        <translation>Prüfen Sie die Stromversorgung der Hand und ihr Kabelende.
Sie wird einmal je Sekunde gefragt, bis sie antwortet.</translation>
    </message>
    <message>
        <source>Connect the adapter again. It is looked for once a second.
Reload on the Basic page tries to open the port at once.</source>
        <translation>Schließen Sie den Adapter wieder an. Er wird einmal je Sekunde gesucht.
Neu laden auf der Seite Allgemein versucht sofort, den Port zu öffnen.</translation>
    </message>
    <message>
        <source>Scan again, or open the node in the Options menu.</source>
        <translation>Suchen Sie erneut, oder öffnen Sie den Knoten im Menü Optionen.</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>Suche läuft</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>No answer</source>
        <translation>Keine Antwort</translation>
    </message>
    <message>
        <source>Port lost</source>
        <translation>Port verloren</translation>
    </message>
    <message>
        <source>No hand chosen</source>
        <translation>Keine Hand gewählt</translation>
    </message>
    <message>
        <source>Connection: %1</source>
        <translation>Verbindung: %1</translation>
    </message>
    <message>
        <source>The port cannot be opened again. %1</source>
        <translation>Der Port lässt sich nicht wieder öffnen. %1</translation>
    </message>
    <message>
        <source>Connect the adapter again, choose its port and click Scan.</source>
        <translation>Schließen Sie den Adapter wieder an, wählen Sie seinen Port und klicken Sie auf Suchen.</translation>
    </message>
    <message>
        <source>Continue ends a halt.</source>
        <translation>Fortsetzen beendet einen Halt.</translation>
    </message>
    <message>
        <source>The port is back. The hand does not answer yet.</source>
        <translation>Der Port ist wieder da. Die Hand antwortet noch nicht.</translation>
    </message>
    <message>
        <source>Every hand answers to node 255 over SerialCtrl.
With several hands on the bus, all of them act and their replies collide.</source>
        <translation>Über SerialCtrl antwortet jede Hand auf Knoten 255.
Sind mehrere Hände am Bus, handeln alle und ihre Antworten kollidieren.</translation>
    </message>
</context>
<context>
    <name>vanto::CopyGainsDialog</name>
    <message>
        <source>Gains in the file of:</source>
        <translation>Verstärkungen in der Datei von:</translation>
    </message>
    <message>
        <source>Copy to:</source>
        <translation>Kopieren nach:</translation>
    </message>
</context>
<context>
    <name>vanto::CursorPanel</name>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Cursor %1</source>
        <translation>Cursor %1</translation>
    </message>
    <message>
        <source>Values at the cursors and between them</source>
        <translation>Werte an den Cursorn und dazwischen</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>Cursor 1</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>Cursor 2</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>%1 s apart</source>
        <translation>Abstand %1 s</translation>
    </message>
    <message>
        <source>The recording is too large for means: it is shown as minima and maxima of groups of samples.</source>
        <translation>Die Aufzeichnung ist für Mittelwerte zu groß: Sie wird als Minima und Maxima von Gruppen von Messwerten gezeigt.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>finger, quantity</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>vanto::DeviceBar</name>
    <message>
        <source>Unknown device protocol type</source>
        <translation>Unbekannter Protokolltyp des Geräts</translation>
    </message>
    <message>
        <source>Unknown device protocol version</source>
        <translation>Unbekannte Protokollversion des Geräts</translation>
    </message>
    <message>
        <source>Unknown device name</source>
        <translation>Unbekannter Gerätename</translation>
    </message>
    <message>
        <source>Unsupported protocol version</source>
        <translation>Protokollversion wird nicht unterstützt</translation>
    </message>
    <message>
        <source>node &apos;0x%1&apos; found, firmware version: %2.%3.%4</source>
        <translation>Knoten „0x%1“ gefunden, Firmware-Version: %2.%3.%4</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Serieller Port</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Refresh ports</source>
        <translation>Ports aktualisieren</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Gerät:</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Scan for devices</source>
        <translation>Geräte suchen</translation>
    </message>
    <message>
        <source>No hand answers at node %1.</source>
        <translation>An Knoten %1 antwortet keine Hand.</translation>
    </message>
</context>
<context>
    <name>vanto::DownloadDialog</name>
    <message>
        <source>%1
%2 of %3</source>
        <translation>%1
%2 von %3</translation>
    </message>
</context>
<context>
    <name>vanto::FingerLegend</name>
    <message>
        <source>Shows the lines of this finger</source>
        <translation>Zeigt die Linien dieses Fingers</translation>
    </message>
</context>
<context>
    <name>vanto::FirmwareDownload</name>
    <message>
        <source>Error when saving firmware file.</source>
        <translation>Fehler beim Speichern der Firmware-Datei.</translation>
    </message>
    <message>
        <source>Error when reading version file from server.</source>
        <translation>Fehler beim Lesen der Versionsdatei vom Server.</translation>
    </message>
    <message>
        <source>Error when parsing version file.</source>
        <translation>Fehler beim Auswerten der Versionsdatei.</translation>
    </message>
    <message>
        <source>Error when reading firmware file from server.</source>
        <translation>Fehler beim Lesen der Firmware-Datei vom Server.</translation>
    </message>
</context>
<context>
    <name>vanto::ForcePage</name>
    <message>
        <source>This hand has force sensors. Set its force limits on the Setting page.</source>
        <translation>Diese Hand hat Kraftsensoren. Die Kraftgrenzen werden auf der Seite „Einstellungen“ gesetzt.</translation>
    </message>
</context>
<context>
    <name>vanto::HaltControl</name>
    <message>
        <source>The port is lost; nothing can be sent. Switch the power off.</source>
        <translation>Der Port ist verloren, es kann nichts gesendet werden. Schalten Sie den Strom ab.</translation>
    </message>
    <message>
        <source>Continued</source>
        <translation>Fortgesetzt</translation>
    </message>
    <message>
        <source>The hand does not answer. Press Continue again.</source>
        <translation>Die Hand antwortet nicht. Klicken Sie erneut auf Fortsetzen.</translation>
    </message>
    <message>
        <source>Halting</source>
        <translation>Wird angehalten</translation>
    </message>
    <message>
        <source>Halted</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Halt not confirmed. Switch the power off.</source>
        <translation>Halt nicht bestätigt. Schalten Sie den Strom ab.</translation>
    </message>
    <message>
        <source>Stop sent to all hands, not confirmed. Switch the power off.</source>
        <translation>Stopp an alle Hände gesendet, nicht bestätigt. Schalten Sie den Strom ab.</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>Halt</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Halt not
confirmed</source>
        <translation>Halt nicht
bestätigt</translation>
    </message>
    <message>
        <source>The fingers are held. Continue allows motions again.</source>
        <translation>Die Finger werden gehalten. Fortsetzen lässt Bewegungen wieder zu.</translation>
    </message>
    <message>
        <source>Stops all fingers at once (Esc, Pause, Shift+Esc)</source>
        <translation>Hält alle Finger sofort an (Esc, Pause, Umschalt+Esc)</translation>
    </message>
</context>
<context>
    <name>vanto::HandInformationDialog</name>
    <message>
        <source>Hand information</source>
        <translation>Hand-Informationen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Hand Information</source>
        <translation>Hand-Informationen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save Report...</source>
        <translation>Bericht speichern...</translation>
    </message>
    <message>
        <source>Saves this, all parameters, the messages and the last frames</source>
        <translation>Speichert dies, alle Parameter, die Meldungen und die letzten Telegramme</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Textdateien (*.txt)</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>JSON-Dateien (*.json)</translation>
    </message>
    <message>
        <source>The report could not be saved in &apos;%1&apos;.</source>
        <translation>Der Bericht konnte nicht in „%1“ gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>vanto::MainWindow</name>
    <message>
        <source>Basic</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Run</source>
        <comment>page</comment>
        <translation>Bewegen</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Sequenz</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Force &amp;Update</source>
        <translation>&amp;Update erzwingen</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farbschema</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>

Supported protocol:</source>
        <translation>

Unterstützte Protokolle:</translation>
    </message>
    <message>
        <source>
    SerialCtrl Protocol Ver %1.x</source>
        <translation>
    SerialCtrl-Protokoll, Ver. %1.x</translation>
    </message>
    <message>
        <source>
    ModBus-RTU Protocol Ver %1.x</source>
        <translation>
    ModBus-RTU-Protokoll, Ver. %1.x</translation>
    </message>
    <message>
        <source>&amp;Open Node...</source>
        <translation>&amp;Knoten öffnen...</translation>
    </message>
    <message>
        <source>Scan &amp;Range...</source>
        <translation>Such&amp;bereich...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Messages...</source>
        <translation>&amp;Meldungen...</translation>
    </message>
    <message>
        <source>&amp;Save Hand Parameters...</source>
        <translation>Parameter der Hand &amp;speichern...</translation>
    </message>
    <message>
        <source>&amp;Compare and Restore...</source>
        <translation>&amp;Vergleichen und wiederherstellen...</translation>
    </message>
    <message>
        <source>Hand &amp;Information...</source>
        <translation>Hand-&amp;Informationen...</translation>
    </message>
    <message>
        <source>M&amp;onitor</source>
        <translation>M&amp;onitor</translation>
    </message>
</context>
<context>
    <name>vanto::MessageList</name>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Save messages</source>
        <translation>Meldungen speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Textdateien (*.txt)</translation>
    </message>
    <message>
        <source>The messages could not be saved in &apos;%1&apos;.</source>
        <translation>Die Meldungen konnten nicht in &apos;%1&apos; gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>vanto::MessageLog</name>
    <message>
        <source>(x %1), last %2</source>
        <translation>(x %1), zuletzt %2</translation>
    </message>
</context>
<context>
    <name>vanto::Modeless</name>
    <message>
        <source>&apos;%1&apos; already exists.</source>
        <translation>&apos;%1&apos; ist bereits vorhanden.</translation>
    </message>
    <message>
        <source>Do you want to replace it?</source>
        <translation>Möchten Sie die Datei ersetzen?</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorDock</name>
    <message>
        <source>Monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>Samples per second</source>
        <translation>Abtastungen pro Sekunde</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>As fast as possible</source>
        <translation>So schnell wie möglich</translation>
    </message>
    <message>
        <source>Shown time</source>
        <translation>Gezeigte Zeitspanne</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Keeps the plot as it is, to drag and zoom it. Sampling goes on.</source>
        <translation>Friert das Diagramm ein, um es zu verschieben und zu zoomen. Die Abtastung läuft weiter.</translation>
    </message>
    <message>
        <source>Text of the marker</source>
        <translation>Text der Marke</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markieren</translation>
    </message>
    <message>
        <source>Open Recording...</source>
        <translation>Aufzeichnung öffnen...</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>Bild speichern...</translation>
    </message>
    <message>
        <source>hand opened</source>
        <translation>Hand geöffnet</translation>
    </message>
    <message>
        <source>%1 Hz, %2 recorded</source>
        <translation>%1 Hz, %2 aufgezeichnet</translation>
    </message>
    <message>
        <source>%1 samples recorded in &apos;%2&apos;.</source>
        <translation>%1 Abtastungen in „%2“ aufgezeichnet.</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>Aufzeichnungen (*.csv)</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Record...</source>
        <translation>Aufzeichnen...</translation>
    </message>
    <message>
        <source>mark</source>
        <translation>Marke</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Recording stopped because the monitor is hidden: %1 samples in &apos;%2&apos;.</source>
        <translation>Aufzeichnung beendet, weil der Monitor ausgeblendet ist: %1 Abtastungen in „%2“.</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorPlot</name>
    <message>
        <source>Plot of the measured values</source>
        <translation>Diagramm der Messwerte</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
    </message>
    <message>
        <source>Limit %1 mA</source>
        <translation>Grenze %1 mA</translation>
    </message>
    <message>
        <source>Player %1 mA</source>
        <translation>Wiedergabe %1 mA</translation>
    </message>
    <message>
        <source>Left and Right move the time, Plus and Minus zoom it, Home returns.</source>
        <translation>Links und Rechts verschieben die Zeit, Plus und Minus vergrößern und verkleinern, Pos1 kehrt zurück.</translation>
    </message>
    <message>
        <source>Current (mA)</source>
        <translation>Strom (mA)</translation>
    </message>
    <message>
        <source>Angle (°)</source>
        <translation>Winkel (°)</translation>
    </message>
</context>
<context>
    <name>vanto::NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close the notice</source>
        <translation>Hinweis schließen</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>vanto::OverlayBar</name>
    <message>
        <source>At the last marker</source>
        <translation>An der letzten Marke</translation>
    </message>
    <message>
        <source>Time of the overlay that is aligned</source>
        <translation>Zeit der Überlagerung, die ausgerichtet wird</translation>
    </message>
    <message>
        <source>at </source>
        <translation>bei </translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Where it is placed</source>
        <translation>Wohin sie gelegt wird</translation>
    </message>
    <message>
        <source>Moves the overlay to each new marker</source>
        <translation>Legt die Überlagerung an jede neue Marke</translation>
    </message>
    <message>
        <source>Remove Overlay</source>
        <translation>Überlagerung entfernen</translation>
    </message>
    <message>
        <source>Overlay: %1</source>
        <translation>Überlagerung: %1</translation>
    </message>
    <message>
        <source>%1, %2 s</source>
        <comment>marker, time</comment>
        <translation>%1, %2 s</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterActions</name>
    <message>
        <source>Parameter files (*.json)</source>
        <translation>Parameterdateien (*.json)</translation>
    </message>
    <message>
        <source>Reading the parameters of the hand...</source>
        <translation>Parameter der Hand werden gelesen...</translation>
    </message>
    <message>
        <source>Save hand parameters</source>
        <translation>Parameter der Hand speichern</translation>
    </message>
    <message>
        <source>Parameters saved in &apos;%1&apos;</source>
        <translation>Parameter in „%1“ gespeichert</translation>
    </message>
    <message>
        <source>Open parameter file</source>
        <translation>Parameterdatei öffnen</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; cannot be used.</source>
        <translation>Die Datei „%1“ ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>The file is from hardware %1, the hand is hardware %2. Compare them?</source>
        <translation>Die Datei stammt von Hardware %1, die Hand hat Hardware %2. Trotzdem vergleichen?</translation>
    </message>
    <message>
        <source>The parameters could not be saved in &apos;%1&apos;.</source>
        <translation>Die Parameter konnten nicht in „%1“ gespeichert werden.</translation>
    </message>
    <message>
        <source>The file does not have these values, which the hand did not give:</source>
        <translation>In der Datei fehlen diese Werte, weil die Hand sie nicht geliefert hat:</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterBackups</name>
    <message>
        <source>Backup of the parameters</source>
        <translation>Sicherung der Parameter</translation>
    </message>
    <message>
        <source>Backup %p%</source>
        <translation>Sicherung %p%</translation>
    </message>
    <message>
        <source>The parameters were not backed up. %1</source>
        <translation>Die Parameter wurden nicht gesichert. %1</translation>
    </message>
    <message>
        <source>Compare...</source>
        <translation>Vergleichen...</translation>
    </message>
    <message>
        <source>The backup is incomplete. %1</source>
        <translation>Die Sicherung ist unvollständig. %1</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>Die Hand antwortet nicht.</translation>
    </message>
    <message>
        <source>The parameters of the hand differ from the backup made before the update.</source>
        <translation>Die Parameter der Hand weichen von der Sicherung vor dem Update ab.</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterTable</name>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Finger</source>
        <translation>Finger</translation>
    </message>
    <message>
        <source>In the hand</source>
        <translation>In der Hand</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>In der Datei</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Level 2 moves the hand when it is switched on</source>
        <translation>Stufe 2 bewegt die Hand beim Einschalten</translation>
    </message>
    <message>
        <source>Limits where the finger can move</source>
        <translation>Begrenzt, wohin sich der Finger bewegen kann</translation>
    </message>
    <message>
        <source>A wrong calibration drives fingers into their stops</source>
        <translation>Eine falsche Kalibrierung fährt Finger gegen ihre Anschläge</translation>
    </message>
    <message>
        <source>The file is from another hand</source>
        <translation>Die Datei stammt von einer anderen Hand</translation>
    </message>
    <message>
        <source>Never written</source>
        <translation>Wird nie gesetzt</translation>
    </message>
</context>
<context>
    <name>vanto::ParametersDialog</name>
    <message>
        <source>Show equal values</source>
        <translation>Gleiche Werte anzeigen</translation>
    </message>
    <message>
        <source>Compare and Restore</source>
        <translation>Vergleichen und wiederherstellen</translation>
    </message>
    <message>
        <source>File: %1</source>
        <translation>Datei: %1</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Gains</source>
        <translation>Verstärkungen</translation>
    </message>
    <message>
        <source>Current limits</source>
        <translation>Stromgrenzen</translation>
    </message>
    <message>
        <source>Force limits</source>
        <translation>Kraftgrenzen</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>Positionsgrenzen</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>Selbsttest-Stufe</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>Signaltöne</translation>
    </message>
    <message>
        <source>Kinds:</source>
        <translation>Arten:</translation>
    </message>
    <message>
        <source>Fingers:</source>
        <translation>Finger:</translation>
    </message>
    <message>
        <source>Copy Gains...</source>
        <translation>Verstärkungen kopieren...</translation>
    </message>
    <message>
        <source>Uses the gains of one finger for others, too</source>
        <translation>Verwendet die Verstärkungen eines Fingers auch für andere</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>The file or the hand has no unique id, so the file may be from another hand. The calibrations of two hands are never the same.
Are you sure that the file is from this hand?</source>
        <translation>Die Datei oder die Hand hat keine eindeutige ID, die Datei kann also von einer anderen Hand stammen. Die Kalibrierungen zweier Hände sind nie gleich.
Sind Sie sicher, dass die Datei von dieser Hand stammt?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Restoring...</source>
        <translation>Wiederherstellung läuft...</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Gesetzt: %1</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>Abgelehnt: %1</translation>
    </message>
    <message>
        <source>Not kept: %1</source>
        <translation>Nicht übernommen: %1</translation>
    </message>
    <message>
        <source>No answer: %1</source>
        <translation>Keine Antwort: %1</translation>
    </message>
    <message>
        <source>Not tried: %1</source>
        <translation>Nicht versucht: %1</translation>
    </message>
    <message>
        <source>The connection has changed. Close this dialog and compare again.</source>
        <translation>Die Verbindung hat sich geändert. Schließen Sie diesen Dialog und vergleichen Sie erneut.</translation>
    </message>
    <message>
        <source>Calibration and position limits define where the fingers end. With wrong ones the fingers are driven into their stops and can be damaged.
Restore those of the file?</source>
        <translation>Kalibrierung und Positionsgrenzen legen fest, wo die Finger enden. Mit falschen Werten fahren die Finger in ihre Anschläge und können beschädigt werden.
Werte der Datei wiederherstellen?</translation>
    </message>
    <message>
        <source>It is not known which calibration the hand has now, it may be incomplete. Close this dialog and compare again.</source>
        <translation>Es ist nicht bekannt, welche Kalibrierung die Hand jetzt hat; sie kann unvollständig sein. Schließen Sie diesen Dialog und vergleichen Sie erneut.</translation>
    </message>
    <message>
        <source>The calibration of the hand was read again.</source>
        <translation>Die Kalibrierung der Hand wurde erneut gelesen.</translation>
    </message>
    <message>
        <source>The calibration of the hand could not be read again.</source>
        <translation>Die Kalibrierung der Hand konnte nicht erneut gelesen werden.</translation>
    </message>
    <message>
        <source>Another hand may have answered.</source>
        <translation>Möglicherweise hat eine andere Hand geantwortet.</translation>
    </message>
    <message>
        <source>The hand has no unique id, so it may be another one now. Close this dialog and compare again.</source>
        <translation>Die Hand hat keine eindeutige Kennung und kann jetzt eine andere sein. Diesen Dialog schließen und erneut vergleichen.</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Open the hand at its own node to restore its parameters.</source>
        <translation>Knoten 255 ist jede Hand am Bus. Öffnen Sie die Hand an ihrem eigenen Knoten, um ihre Parameter wiederherzustellen.</translation>
    </message>
</context>
<context>
    <name>vanto::PlotPanel</name>
    <message>
        <source>Limits</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>The current limits that were read last, and the limit of the player</source>
        <translation>Die zuletzt gelesenen Stromgrenzen und die Grenze der Wiedergabe</translation>
    </message>
    <message>
        <source>Cursors</source>
        <translation>Cursor</translation>
    </message>
    <message>
        <source>Drag a cursor, or click to place the nearer one. The table shows their values.</source>
        <translation>Einen Cursor ziehen oder den näheren mit einem Klick setzen. Die Tabelle zeigt ihre Werte.</translation>
    </message>
    <message>
        <source>Overlay...</source>
        <translation>Überlagern...</translation>
    </message>
    <message>
        <source>Plots an earlier recording over these samples</source>
        <translation>Zeichnet eine frühere Aufzeichnung über diese Messwerte</translation>
    </message>
    <message>
        <source>Open overlay</source>
        <translation>Überlagerung öffnen</translation>
    </message>
</context>
<context>
    <name>vanto::RecentFiles</name>
    <message>
        <source>No files</source>
        <translation>Keine Dateien</translation>
    </message>
</context>
<context>
    <name>vanto::RecordingView</name>
    <message>
        <source>Reading the recording...</source>
        <translation>Aufzeichnung wird gelesen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; cannot be opened.</source>
        <translation>Die Aufzeichnung „%1“ kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; is empty.</source>
        <translation>Die Aufzeichnung „%1“ ist leer.</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>Bild speichern...</translation>
    </message>
    <message>
        <source>%1 samples, from %2.</source>
        <translation>%1 Abtastungen, vom %2.</translation>
    </message>
    <message>
        <source>The plot shows the minimum and the maximum of %1 samples each.</source>
        <translation>Das Diagramm zeigt jeweils Minimum und Maximum von %1 Abtastungen.</translation>
    </message>
    <message>
        <source>The last line of the file is incomplete.</source>
        <translation>Die letzte Zeile der Datei ist unvollständig.</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be saved in &apos;%1&apos;.</source>
        <translation>Das Bild konnte nicht in „%1“ gespeichert werden.</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>Aufzeichnungen (*.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open recording</source>
        <translation>Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>%1 samples.</source>
        <translation>%1 Messwerte.</translation>
    </message>
</context>
<context>
    <name>vanto::RunPage</name>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Zeigefinger</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittelfinger</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Ringfinger</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>Kleiner Finger</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>Daumenwurzel</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Position or angle</source>
        <translation>Position oder Winkel</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>ticks</source>
        <translation>ticks</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>Tempo:</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>Strom:</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>Daumen: Ziel</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>Daumen: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Thumb position or angle</source>
        <translation>Daumen: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>Daumen: Tempo</translation>
    </message>
    <message>
        <source>Thumb current</source>
        <translation>Daumen: Strom</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>Zeigefinger: Ziel</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>Zeigefinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Index position or angle</source>
        <translation>Zeigefinger: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>Zeigefinger: Tempo</translation>
    </message>
    <message>
        <source>Index current</source>
        <translation>Zeigefinger: Strom</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>Mittelfinger: Ziel</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>Mittelfinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Middle position or angle</source>
        <translation>Mittelfinger: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>Mittelfinger: Tempo</translation>
    </message>
    <message>
        <source>Middle current</source>
        <translation>Mittelfinger: Strom</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>Ringfinger: Ziel</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>Ringfinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Third position or angle</source>
        <translation>Ringfinger: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>Ringfinger: Tempo</translation>
    </message>
    <message>
        <source>Third current</source>
        <translation>Ringfinger: Strom</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>Kleiner Finger: Ziel</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>Kleiner Finger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Little position or angle</source>
        <translation>Kleiner Finger: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>Kleiner Finger: Tempo</translation>
    </message>
    <message>
        <source>Little current</source>
        <translation>Kleiner Finger: Strom</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>Daumenwurzel: Ziel</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>Daumenwurzel: Position oder Winkel</translation>
    </message>
    <message>
        <source>Set Thumb root position or angle</source>
        <translation>Daumenwurzel: Position oder Winkel setzen</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>Daumenwurzel: Tempo</translation>
    </message>
    <message>
        <source>Thumb root current</source>
        <translation>Daumenwurzel: Strom</translation>
    </message>
    <message>
        <source>Running info loaded</source>
        <translation>Betriebsdaten geladen</translation>
    </message>
</context>
<context>
    <name>vanto::ScanRunner</name>
    <message>
        <source>Trying node &apos;0x%1&apos;...</source>
        <translation>Knoten „0x%1“ wird abgefragt...</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Open port &apos;%1&apos; failed, protocol=%2, baudrate=%3</source>
        <translation>Öffnen von Port „%1“ fehlgeschlagen, Protokoll=%2, Baudrate=%3</translation>
    </message>
    <message>
        <source>Scans nodes %1 to %2</source>
        <translation>Sucht die Knoten %1 bis %2</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceActions</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Insert Before</source>
        <translation>&amp;Davor einfügen</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>D&amp;uplizieren</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>Nach u&amp;nten verschieben</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>(Löschen von %1)</translation>
    </message>
    <message>
        <source>cut of %1</source>
        <translation>(Ausschneiden von %1)</translation>
    </message>
    <message>
        <source>There are no steps on the clipboard.</source>
        <translation>In der Zwischenablage sind keine Schritte.</translation>
    </message>
    <message>
        <source>The steps on the clipboard have angles, not positions.</source>
        <translation>Die Schritte in der Zwischenablage haben Winkel, keine Positionen.</translation>
    </message>
    <message>
        <source>The steps on the clipboard have positions, not angles.</source>
        <translation>Die Schritte in der Zwischenablage haben Positionen, keine Winkel.</translation>
    </message>
    <message>
        <source>paste of %1</source>
        <translation>(Einfügen von %1)</translation>
    </message>
    <message>
        <source>duplicate of %1</source>
        <translation>(Duplizieren von %1)</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>&quot;&amp;Undo&quot; or &quot;&amp;Redo&quot;, and the name of the change</extracomment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Mo&amp;ve Up</source>
        <translation>Nach &amp;oben verschieben</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceDraft</name>
    <message>
        <source>The folder %1 is not writable.</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceEditor</name>
    <message>
        <source>change of the unit</source>
        <translation>(Wechsel der Einheit)</translation>
    </message>
    <message>
        <source>move of %1</source>
        <translation>(Verschieben von %1)</translation>
    </message>
    <message>
        <source>step %1</source>
        <translation>Schritt %1</translation>
    </message>
    <message>
        <source>%1 steps</source>
        <translation>%1 Schritten</translation>
    </message>
    <message>
        <source>loading of %1</source>
        <translation>(Laden von %1)</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceFiles</name>
    <message>
        <source>The draft of the sequence is not saved: %1</source>
        <translation>Der Entwurf der Sequenz ist nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>Keine Datei</translation>
    </message>
    <message>
        <source>%1 (not saved)</source>
        <translation>%1 (nicht gespeichert)</translation>
    </message>
    <message>
        <source>Choose json file</source>
        <translation>JSON-Datei wählen</translation>
    </message>
    <message>
        <source>Sequence files (*.json)</source>
        <translation>Sequenzdateien (*.json)</translation>
    </message>
    <message>
        <source>%1 cannot be loaded: %2</source>
        <translation>%1 kann nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>%1 is not saved: %2</source>
        <translation>%1 wurde nicht gespeichert: %2</translation>
    </message>
    <message>
        <source>Not saved: %1, %2 steps, %3</source>
        <translation>Nicht gespeichert: %1, %2 Schritte, %3</translation>
    </message>
    <message>
        <source>restoring of the unsaved sequence</source>
        <translation>(Wiederherstellen der nicht gespeicherten Sequenz)</translation>
    </message>
    <message>
        <source>Not saved: %1, 1 step, %2</source>
        <translation>Nicht gespeichert: %1, 1 Schritt, %2</translation>
    </message>
    <message>
        <source>Recent Se&amp;quences</source>
        <translation>&amp;Zuletzt geöffnete Sequenzen</translation>
    </message>
    <message>
        <source>The draft %1 is damaged.</source>
        <translation>Der Entwurf %1 ist beschädigt.</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceManager</name>
    <message>
        <source>Not everything could be written. Is the disk full?</source>
        <translation>Es konnte nicht alles geschrieben werden. Ist der Datenträger voll?</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The file is larger than 64 MiB.</source>
        <translation>Die Datei ist größer als 64 MiB.</translation>
    </message>
    <message>
        <source>The file is not a sequence.</source>
        <translation>Die Datei ist keine Sequenz.</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePage</name>
    <message>
        <source>Position or angle</source>
        <translation>Position oder Winkel</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>ticks</source>
        <translation>ticks</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>Tempo:</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>Daumen: Ziel</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>Daumen: Position oder Winkel</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>Daumen: Tempo</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>Zeigefinger: Ziel</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>Zeigefinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>Zeigefinger: Tempo</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>Mittelfinger: Ziel</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>Mittelfinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>Mittelfinger: Tempo</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>Ringfinger: Ziel</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>Ringfinger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>Ringfinger: Tempo</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>Kleiner Finger: Ziel</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>Kleiner Finger: Position oder Winkel</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>Kleiner Finger: Tempo</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>Daumenwurzel: Ziel</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>Daumenwurzel: Position oder Winkel</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>Daumenwurzel: Tempo</translation>
    </message>
    <message>
        <source>Steps of the sequence</source>
        <translation>Schritte der Sequenz</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>Schritt einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>Schritt löschen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Move step up</source>
        <translation>Schritt nach oben verschieben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Move step down</source>
        <translation>Schritt nach unten verschieben</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Run sequence</source>
        <translation>Sequenz starten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Stop sequence</source>
        <translation>Sequenz stoppen</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Load sequence</source>
        <translation>Sequenz laden</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save sequence</source>
        <translation>Sequenz speichern</translation>
    </message>
    <message>
        <source>Hands cannot store sequences yet</source>
        <translation>Hände speichern noch keine Sequenzen</translation>
    </message>
    <message>
        <source>From hand</source>
        <translation>Von der Hand</translation>
    </message>
    <message>
        <source>To hand</source>
        <translation>An die Hand</translation>
    </message>
    <message>
        <source>Run on hand</source>
        <translation>Hand: Start</translation>
    </message>
    <message>
        <source>Stop on hand</source>
        <translation>Hand: Stopp</translation>
    </message>
    <message>
        <source>Delay:</source>
        <translation>Wartezeit:</translation>
    </message>
    <message>
        <source>Step delay in milliseconds</source>
        <translation>Wartezeit des Schritts in Millisekunden</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Thumb Root</source>
        <comment>short</comment>
        <translation>D.-Wurzel</translation>
    </message>
    <message>
        <source>Thumb</source>
        <comment>short</comment>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Index</source>
        <comment>short</comment>
        <translation>Zeigef.</translation>
    </message>
    <message>
        <source>Middle</source>
        <comment>short</comment>
        <translation>Mittelf.</translation>
    </message>
    <message>
        <source>Third</source>
        <comment>short</comment>
        <translation>Ringf.</translation>
    </message>
    <message>
        <source>Little</source>
        <comment>short</comment>
        <translation>Kleinf.</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <comment>short</comment>
        <translation>D.-Wurzel</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Restore unsaved sequence</source>
        <translation>Nicht gespeicherte Sequenz wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Discard unsaved sequence</source>
        <translation>Nicht gespeicherte Sequenz verwerfen</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>Durchläufe:</translation>
    </message>
    <message>
        <source>How often a run is played</source>
        <translation>Wie oft die Sequenz nach dem Start gespielt wird</translation>
    </message>
    <message>
        <source>endless</source>
        <translation>endlos</translation>
    </message>
    <message>
        <source>insertion of %1</source>
        <translation>(Einfügen von %1)</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>(Löschen von %1)</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePlayer</name>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Zeigefinger</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittelfinger</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Ringfinger</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>Kleiner Finger</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>Daumenwurzel</translation>
    </message>
    <message>
        <source>No VANTO</source>
        <translation>Kein VANTO</translation>
    </message>
    <message>
        <source>%s has too big current: %d mA</source>
        <translation>%s: Strom zu hoch: %d mA</translation>
    </message>
    <message>
        <source>TIME OUT</source>
        <translation>ZEITÜBERSCHREITUNG</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) gab 0x%3 zurück (Unterfehler %4)</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>Angehalten. Klicken Sie auf Fortsetzen.</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceStatus</name>
    <message>
        <source>Step %1: delay %2 ms, speeds %3</source>
        <extracomment>%3 lists the speeds in the order of the columns</extracomment>
        <translation>Schritt %1: Wartezeit %2 ms, Tempo %3</translation>
    </message>
    <message>
        <source>Playing step %1 of %2</source>
        <translation>Schritt %1 von %2 läuft</translation>
    </message>
    <message>
        <source>%1, round %2</source>
        <translation>%1, Durchlauf %2</translation>
    </message>
    <message>
        <source>%1, round %2 of %3</source>
        <translation>%1, Durchlauf %2 von %3</translation>
    </message>
    <message>
        <source>Moving to step %1</source>
        <translation>Bewegung zu Schritt %1</translation>
    </message>
    <message>
        <source>Step %1 lasts %2 s more. Stop ends it.</source>
        <translation>Schritt %1 dauert noch %2 s. Stopp beendet ihn.</translation>
    </message>
    <message>
        <source>Not sent; Return sends it. %1</source>
        <translation>Nicht gesendet; Eingabetaste sendet. %1</translation>
    </message>
    <message>
        <source>A value is not stored; press Return in its field. %1</source>
        <translation>Ein Wert ist nicht gespeichert; die Eingabetaste in seinem Feld speichert ihn. %1</translation>
    </message>
</context>
<context>
    <name>vanto::SettingPage</name>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Zeigefinger</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittelfinger</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Ringfinger</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>Kleiner Finger</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>Daumenwurzel</translation>
    </message>
    <message>
        <source>P:</source>
        <translation>P:</translation>
    </message>
    <message>
        <source>I:</source>
        <translation>I:</translation>
    </message>
    <message>
        <source>D:</source>
        <translation>D:</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>G:</translation>
    </message>
    <message>
        <source>Current Limit:</source>
        <translation>Stromgrenze:</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Force Limit:</source>
        <translation>Kraftgrenze:</translation>
    </message>
    <message>
        <source>mN</source>
        <translation>mN</translation>
    </message>
    <message>
        <source>Thumb gain P</source>
        <translation>Daumen: Verstärkung P</translation>
    </message>
    <message>
        <source>Thumb gain I</source>
        <translation>Daumen: Verstärkung I</translation>
    </message>
    <message>
        <source>Thumb gain D</source>
        <translation>Daumen: Verstärkung D</translation>
    </message>
    <message>
        <source>Thumb gain G</source>
        <translation>Daumen: Verstärkung G</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Read Thumb gains</source>
        <translation>Daumen: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Write Thumb gains</source>
        <translation>Daumen: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Thumb current limit</source>
        <translation>Daumen: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Thumb current limit</source>
        <translation>Daumen: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Thumb current limit</source>
        <translation>Daumen: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Thumb force limit</source>
        <translation>Daumen: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Thumb force limit</source>
        <translation>Daumen: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Thumb force limit</source>
        <translation>Daumen: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Index gain P</source>
        <translation>Zeigefinger: Verstärkung P</translation>
    </message>
    <message>
        <source>Index gain I</source>
        <translation>Zeigefinger: Verstärkung I</translation>
    </message>
    <message>
        <source>Index gain D</source>
        <translation>Zeigefinger: Verstärkung D</translation>
    </message>
    <message>
        <source>Index gain G</source>
        <translation>Zeigefinger: Verstärkung G</translation>
    </message>
    <message>
        <source>Read Index gains</source>
        <translation>Zeigefinger: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write Index gains</source>
        <translation>Zeigefinger: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Index current limit</source>
        <translation>Zeigefinger: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Index current limit</source>
        <translation>Zeigefinger: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Index current limit</source>
        <translation>Zeigefinger: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Index force limit</source>
        <translation>Zeigefinger: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Index force limit</source>
        <translation>Zeigefinger: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Index force limit</source>
        <translation>Zeigefinger: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Middle gain P</source>
        <translation>Mittelfinger: Verstärkung P</translation>
    </message>
    <message>
        <source>Middle gain I</source>
        <translation>Mittelfinger: Verstärkung I</translation>
    </message>
    <message>
        <source>Middle gain D</source>
        <translation>Mittelfinger: Verstärkung D</translation>
    </message>
    <message>
        <source>Middle gain G</source>
        <translation>Mittelfinger: Verstärkung G</translation>
    </message>
    <message>
        <source>Read Middle gains</source>
        <translation>Mittelfinger: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write Middle gains</source>
        <translation>Mittelfinger: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Middle current limit</source>
        <translation>Mittelfinger: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Middle current limit</source>
        <translation>Mittelfinger: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Middle current limit</source>
        <translation>Mittelfinger: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Middle force limit</source>
        <translation>Mittelfinger: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Middle force limit</source>
        <translation>Mittelfinger: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Middle force limit</source>
        <translation>Mittelfinger: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Third gain P</source>
        <translation>Ringfinger: Verstärkung P</translation>
    </message>
    <message>
        <source>Third gain I</source>
        <translation>Ringfinger: Verstärkung I</translation>
    </message>
    <message>
        <source>Third gain D</source>
        <translation>Ringfinger: Verstärkung D</translation>
    </message>
    <message>
        <source>Third gain G</source>
        <translation>Ringfinger: Verstärkung G</translation>
    </message>
    <message>
        <source>Read Third gains</source>
        <translation>Ringfinger: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write Third gains</source>
        <translation>Ringfinger: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Third current limit</source>
        <translation>Ringfinger: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Third current limit</source>
        <translation>Ringfinger: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Third current limit</source>
        <translation>Ringfinger: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Third force limit</source>
        <translation>Ringfinger: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Third force limit</source>
        <translation>Ringfinger: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Third force limit</source>
        <translation>Ringfinger: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Little gain P</source>
        <translation>Kleiner Finger: Verstärkung P</translation>
    </message>
    <message>
        <source>Little gain I</source>
        <translation>Kleiner Finger: Verstärkung I</translation>
    </message>
    <message>
        <source>Little gain D</source>
        <translation>Kleiner Finger: Verstärkung D</translation>
    </message>
    <message>
        <source>Little gain G</source>
        <translation>Kleiner Finger: Verstärkung G</translation>
    </message>
    <message>
        <source>Read Little gains</source>
        <translation>Kleiner Finger: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write Little gains</source>
        <translation>Kleiner Finger: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Little current limit</source>
        <translation>Kleiner Finger: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Little current limit</source>
        <translation>Kleiner Finger: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Little current limit</source>
        <translation>Kleiner Finger: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Little force limit</source>
        <translation>Kleiner Finger: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Little force limit</source>
        <translation>Kleiner Finger: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Little force limit</source>
        <translation>Kleiner Finger: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Thumb root gain P</source>
        <translation>Daumenwurzel: Verstärkung P</translation>
    </message>
    <message>
        <source>Thumb root gain I</source>
        <translation>Daumenwurzel: Verstärkung I</translation>
    </message>
    <message>
        <source>Thumb root gain D</source>
        <translation>Daumenwurzel: Verstärkung D</translation>
    </message>
    <message>
        <source>Thumb root gain G</source>
        <translation>Daumenwurzel: Verstärkung G</translation>
    </message>
    <message>
        <source>Read Thumb root gains</source>
        <translation>Daumenwurzel: Verstärkungen lesen</translation>
    </message>
    <message>
        <source>Write Thumb root gains</source>
        <translation>Daumenwurzel: Verstärkungen setzen</translation>
    </message>
    <message>
        <source>Thumb root current limit</source>
        <translation>Daumenwurzel: Stromgrenze</translation>
    </message>
    <message>
        <source>Read Thumb root current limit</source>
        <translation>Daumenwurzel: Stromgrenze lesen</translation>
    </message>
    <message>
        <source>Write Thumb root current limit</source>
        <translation>Daumenwurzel: Stromgrenze setzen</translation>
    </message>
    <message>
        <source>Thumb root force limit</source>
        <translation>Daumenwurzel: Kraftgrenze</translation>
    </message>
    <message>
        <source>Read Thumb root force limit</source>
        <translation>Daumenwurzel: Kraftgrenze lesen</translation>
    </message>
    <message>
        <source>Write Thumb root force limit</source>
        <translation>Daumenwurzel: Kraftgrenze setzen</translation>
    </message>
    <message>
        <source>Setting loaded</source>
        <translation>Einstellungen geladen</translation>
    </message>
    <message>
        <source>Please check parameter is complete</source>
        <translation>Bitte prüfen, ob alle Werte angegeben sind</translation>
    </message>
</context>
<context>
    <name>vanto::StatusReporter</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Timeout for %1 node &apos;0x%2&apos;...</source>
        <translation>Zeitüberschreitung bei %1-Knoten „0x%2“...</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) gab 0x%3 zurück (Unterfehler %4)</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>Angehalten. Klicken Sie auf Fortsetzen.</translation>
    </message>
</context>
<context>
    <name>vanto::StepInput</name>
    <message>
        <source>delay of %1</source>
        <translation>(Wartezeit von %1)</translation>
    </message>
    <message>
        <source>speed of %1</source>
        <translation>(Tempo von %1)</translation>
    </message>
    <message>
        <source>target of %1</source>
        <translation>(Ziel von %1)</translation>
    </message>
</context>
<context>
    <name>vanto::StepResults</name>
    <message>
        <source>Copy Peaks as Te&amp;xt</source>
        <translation>Spitzenwerte als Te&amp;xt kopieren</translation>
    </message>
    <message>
        <source>Copy Peaks as &amp;JSON</source>
        <translation>Spitzenwerte als &amp;JSON kopieren</translation>
    </message>
    <message>
        <source>%1 %2 mA</source>
        <translation>%1 %2 mA</translation>
    </message>
    <message>
        <source>Last run: %1 ms; highest current: %2</source>
        <translation>Letzter Lauf: %1 ms; höchster Strom: %2</translation>
    </message>
    <message>
        <source>Last run, %1 rounds: at most %2 ms; highest current: %3</source>
        <translation>Letzter Lauf, %1 Durchläufe: höchstens %2 ms; höchster Strom: %3</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Time (ms)</source>
        <translation>Zeit (ms)</translation>
    </message>
    <message>
        <source>%1 (mA)</source>
        <translation>%1 (mA)</translation>
    </message>
</context>
<context>
    <name>vanto::TelemetryRecorder</name>
    <message>
        <source>&apos;%1&apos; is not a regular file.</source>
        <translation>„%1“ ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The recording has ended: cannot write &apos;%1&apos;: %2</source>
        <translation>Die Aufzeichnung ist beendet: „%1“ kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>vanto::UpdateDialog</name>
    <message>
        <source>Wait a moment...</source>
        <translation>Einen Moment...</translation>
    </message>
    <message>
        <source>Power up the device now</source>
        <translation>Jetzt das Gerät einschalten</translation>
    </message>
    <message>
        <source>Updating device firmware...</source>
        <translation>Firmware des Geräts wird aktualisiert...</translation>
    </message>
</context>
<context>
    <name>vanto::ValueTable</name>
    <message>
        <source>Measured values</source>
        <translation>Messwerte</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Angle (°)</source>
        <translation>Winkel (°)</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>Current (mA)</source>
        <translation>Strom (mA)</translation>
    </message>
</context>
</TS>
