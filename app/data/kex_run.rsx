KEXRSX 1
; Texts of the module by key and country: KEY=long|short|keyword. Loaded with the prefix "KEX_".
[49]
AD018=Argument
AD019=ist ungültig
AD020=nicht verfügbar
KEX041=oder
OBJ001=Daten sind nicht in der Zeichnung gespeichert, Objekte:
OBJ002=Inzwischen geänderte Daten sind überschrieben, Objekte:
