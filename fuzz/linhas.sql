-- Taxpayer 100 with declaration 7, so that every report has something to draw.
INSERT INTO tblContribuinte (IE, "RazãoSocial", DataCadastro) VALUES
    ('100', 'Água Doce Ltda', '1999-03-01');
INSERT INTO tblDRQ (NroDRQ, IE, Ref1, Ref2, Tipo, RegTrib, Consistente, SaldoCredAntDig) VALUES
    (7, '100', '2003-05-01', '2003-05-31', 1, '01', -1, 10000), (9, '100', NULL, NULL, 2, '02', 0, NULL);
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, "ValorContábil", Imposto, ImpostoRetidoST) VALUES
    (7, '1.101', 160000, 10000, NULL), (7, '5.102', 20000, 3, 4), (7, '6.102', 10000, 5, 6);
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, "ValorContábil_1", "ValorContábil_2") VALUES
    (7, '6.102', '15', 10000, 1), (7, '2.102', '41', 30000, 4);
INSERT INTO tblEstados VALUES ('41', 'PR', 'Paraná'), ('15', 'PA', 'Pará');
INSERT INTO tblZFM_ALC VALUES
    (7, '6.102', '30', '2003-05-20', 'A', '11', 10000), (7, '6.102', '10', '2003-05-05', 'A', '', 20000);
INSERT INTO "tblMunicípiosZFM_ALC" VALUES ('A', 'Manaus', 'AM');
INSERT INTO "tblOcorrências" VALUES
    (7, '002.18', 10, 10000, -1), (7, '002.10', 20, 20000, -1), (7, '007.01', 30, 70000, 0),
    (7, '007.04', 40, 1, -1), (7, '002.20', 50, 2, -1), (7, '014.01', 60, 3, 0);
INSERT INTO "tblQuadroOcorrências" VALUES ('002.18', -1, 'centralização', 'a'),
    ('002.10', -1, 'ressarcimento', 'b'), ('007.01', 0, 'ST-11', 'c'), ('007.04', -1, 'crédito', 'd'),
    ('002.20', -1, 'visto', 'e');
INSERT INTO tblIEsRemetente VALUES (10, '300', 1), (40, '200', 2), (50, '200', 2);
INSERT INTO tblRecibosCredito VALUES (50, 'b', 1);
INSERT INTO tblIESubstituto VALUES (20, '2', '1', '2003-05-01', '2003-05-02', 5);
INSERT INTO tblIESubstituido VALUES (20, '2', '1', 5), (30, '3', '2', 6);
INSERT INTO tblMIDAX VALUES (7, '1.1', 'm', 1), (7, '2.1', 'm', 4), (7, '3.1', NULL, 6);
INSERT INTO "tblMunicípios" VALUES ('m', 'Ápia');
INSERT INTO "tblCódigosMIDAX" VALUES ('1.1', 'um', 'Grupo um.'), ('2.1', 'dois', 'Grupo dois'),
    ('3.1', 'três', 'Grupo três.');
INSERT INTO tblPagamento VALUES (7, 0, '2003-06-01', 1), (7, -1, '2003-06-09', 2);
INSERT INTO "tblRegistroExportação" VALUES (7, 'b2'), (7, 'B10');
INSERT INTO tblVELO (Contribuinte, ValorTotal) VALUES ('primeiro', '1');
INSERT INTO "tblApuraçãoOperaçõesPróprias" (NroDRQ, Linha) VALUES (7, 'z'), (7, 'a');
