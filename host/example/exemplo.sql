-- The example declaration database: six fictional taxpayers of the State of Valdora and ten
-- declarations, which together show every report, every tax regime, both generations of CFOP
-- codes and every page break. Runs once, in one piece, on an empty database.
--
-- Amounts are stored times 10,000. The lists below state them in centavos where they can, and
-- multiply by 100; an amount written with its four decimals (12345650 is 1.234,5650) says so.

------------------------------------------------------------------------------------------------
-- Catalogues
------------------------------------------------------------------------------------------------

-- The states of Brazil, Valdora ('60') and five more of the same imaginary region.
INSERT INTO tblEstados (Código, UF, Estado) VALUES
    ('11', 'RO', 'Rondônia'),
    ('12', 'AC', 'Acre'),
    ('13', 'AM', 'Amazonas'),
    ('14', 'RR', 'Roraima'),
    ('15', 'PA', 'Pará'),
    ('16', 'AP', 'Amapá'),
    ('17', 'TO', 'Tocantins'),
    ('21', 'MA', 'Maranhão'),
    ('22', 'PI', 'Piauí'),
    ('23', 'CE', 'Ceará'),
    ('24', 'RN', 'Rio Grande do Norte'),
    ('25', 'PB', 'Paraíba'),
    ('26', 'PE', 'Pernambuco'),
    ('27', 'AL', 'Alagoas'),
    ('28', 'SE', 'Sergipe'),
    ('29', 'BA', 'Bahia'),
    ('31', 'MG', 'Minas Gerais'),
    ('32', 'ES', 'Espírito Santo'),
    ('33', 'RJ', 'Rio de Janeiro'),
    ('35', 'SP', 'São Paulo'),
    ('41', 'PR', 'Paraná'),
    ('42', 'SC', 'Santa Catarina'),
    ('43', 'RS', 'Rio Grande do Sul'),
    ('50', 'MS', 'Mato Grosso do Sul'),
    ('51', 'MT', 'Mato Grosso'),
    ('52', 'GO', 'Goiás'),
    ('53', 'DF', 'Distrito Federal'),
    ('60', 'VD', 'Valdora'),
    ('61', 'AU', 'Áurea'),
    ('62', 'IV', 'Itavera'),
    ('63', 'NL', 'Nova Lusitânia'),
    ('64', 'OV', 'Ouro Velho'),
    ('65', 'UB', 'Ubiraçaba');

-- Towns of Valdora.
INSERT INTO tblMunicípios (CódMunicípio, Município) VALUES
    ('6000105', 'Águas Claras do Sul'),
    ('6000204', 'Alvorada da Serra'),
    ('6000303', 'Arraial da Conceição'),
    ('6000402', 'Barra do Ipê'),
    ('6000501', 'Bom Jesus da Várzea'),
    ('6000600', 'Campo Órfão'),
    ('6000709', 'Cedral'),
    ('6000808', 'Córrego Fundo'),
    ('6000907', 'Dourada'),
    ('6001004', 'Engenheiro Falcão'),
    ('6001103', 'Estância Velha'),
    ('6001202', 'Iguaçaba'),
    ('6001301', 'Lagoa da Onça'),
    ('6001400', 'Muriçoca'),
    ('6001509', 'Nossa Senhora do Ó'),
    ('6001608', 'Pedra Lavrada do Norte'),
    ('6001707', 'Ribeirão Açu'),
    ('6001806', 'São João da Barranca'),
    ('6001905', 'Três Pontões'),
    ('6002002', 'Valdora');

-- Towns of the free-trade zones.
INSERT INTO tblMunicípiosZFM_ALC (CódMunicípio, Município, UF) VALUES
    ('0255', 'Manaus', 'AM'),
    ('0257', 'Presidente Figueiredo', 'AM'),
    ('0259', 'Rio Preto da Eva', 'AM'),
    ('0261', 'Tabatinga', 'AM'),
    ('0001', 'Guajará-Mirim', 'RO'),
    ('0301', 'Boa Vista', 'RR'),
    ('0302', 'Bonfim', 'RR'),
    ('0605', 'Macapá', 'AP'),
    ('0611', 'Santana', 'AP'),
    ('0105', 'Brasiléia', 'AC'),
    ('0107', 'Cruzeiro do Sul', 'AC');

-- Additional information: the first digit is the group. Each group has one heading.
INSERT INTO tblCódigosMIDAX (Código, Descrição, Cabeçalho)
WITH grupos(grupo, cabeçalho) AS (VALUES
    ('1', 'Entradas de produtos agropecuários e de minerais, por município de origem, quando o '
          || 'remetente não é inscrito no cadastro de contribuintes.'),
    ('2', 'Prestações de serviços de transporte e de comunicação e fornecimento de energia, por '
          || 'município em que tiveram início ou em que foram consumidos.'),
    ('3', 'Valores a excluir ou a acrescentar na apuração do valor adicionado do município.')),
códigos(código, descrição) AS (VALUES
    ('1.01', 'Compras de café em coco e beneficiado de produtores rurais.'),
    ('1.02', 'Compras de gado em pé e de leite cru de produtores rurais.'),
    ('1.03', 'Compras de hortifrutícolas de produtores rurais.'),
    ('1.04', 'Aquisições de areia, argila, pedra britada e minério de ferro de extratores.'),
    ('2.01', 'Transporte rodoviário de cargas, por município de início da prestação.'),
    ('2.02', 'Transporte rodoviário de passageiros, por município de embarque.'),
    ('2.03', 'Fornecimento de energia elétrica a consumidores não inscritos.'),
    ('3.01', 'Entradas de bens do ativo permanente e de materiais para uso ou consumo.'),
    ('3.02', 'Transferências recebidas por preço inferior ao custo, no montante da diferença.'),
    ('3.03', 'Saídas por transferência com valor inferior ao de mercado, quando o produto se '
             || 'destina a venda por outro estabelecimento do mesmo titular situado em Valdora, no '
             || 'montante da diferença entre o preço médio praticado no período e o valor da '
             || 'transferência.'),
    ('3.04', 'Parcela do imposto sobre produtos industrializados que não integra o valor da '
             || 'operação.'),
    ('3.05', 'Mercadorias remetidas para industrialização, conserto, demonstração ou exposição, e '
             || 'os respectivos retornos, simbólicos ou não.'),
    ('3.06', 'Serviços tributados pelo município, cobrados na mesma nota fiscal.'),
    ('3.07', 'Vendas canceladas e descontos incondicionais.'),
    ('3.08', 'Imposto retido por substituição tributária que está incluído no valor contábil das '
             || 'operações de entrada e de saída.'),
    ('3.09', 'Entradas de combustíveis e lubrificantes para consumo da própria frota.'),
    ('3.10', 'Mercadorias recebidas em consignação e ainda não vendidas no encerramento do período.'),
    ('3.11', 'Outros valores que não compõem o valor adicionado, discriminados no livro próprio: '
             || 'brindes, amostras, doações a entidades assistenciais, remessas para depósito '
             || 'fechado e para armazém geral, e perdas no processo industrial devidamente '
             || 'comprovadas por laudo.'))
SELECT código, descrição, cabeçalho FROM códigos JOIN grupos ON grupo = substr(código, 1, 1)
ORDER BY código;

-- Sub-items of the assessment: own operations.
INSERT INTO tblQuadroOcorrências (CódSubItem, OpPróprias, Ocorrência, FLegal) VALUES
    ('002.01', -1,
     'Diferença entre as alíquotas interna e interestadual na entrada de mercadoria destinada a uso ou consumo do estabelecimento.',
     'Arts. 2º, inciso VI, e 117, § 1º, do Regulamento do ICMS de Valdora (Decreto 4.118/1998).'),
    ('002.02', -1,
     'Diferença entre as alíquotas interna e interestadual na entrada de bem destinado ao ativo permanente.',
     'Arts. 2º, inciso VI, e 117, § 2º, do Regulamento do ICMS de Valdora.'),
    ('002.10', -1,
     'Ressarcimento, por nota fiscal, do imposto retido por substituição tributária: débito do contribuinte substituto que recebe a nota fiscal de ressarcimento do contribuinte substituído.',
     'Art. 270, inciso II, do Regulamento do ICMS de Valdora; art. 12 da Portaria KEX 17/1999.'),
    ('002.11', -1,
     'Ressarcimento, por pedido deferido, do imposto retido por substituição tributária: débito correspondente ao período do pedido, sem nota fiscal.',
     'Art. 270, inciso III, do Regulamento do ICMS de Valdora; art. 14, §§ 1º e 2º, da Portaria KEX 17/1999.'),
    ('002.18', -1,
     'Saldo devedor recebido por transferência de outro estabelecimento do mesmo titular, no regime de apuração centralizada.',
     'Arts. 96 a 98 do Regulamento do ICMS de Valdora.'),
    ('002.19', -1,
     'Saldo credor transferido para o estabelecimento centralizador, até o limite do saldo devedor da centralização no período.',
     'Art. 98, parágrafo único, do Regulamento do ICMS de Valdora; Portaria KEX 27/1995.'),
    ('002.20', -1,
     'Crédito acumulado transferido a fornecedor de matéria-prima, material secundário ou de embalagem, com visto eletrônico.',
     'Art. 73, inciso III, do Regulamento do ICMS de Valdora; art. 21 da Portaria KEX 53/1996.'),
    ('002.21', -1,
     'Crédito acumulado transferido a estabelecimento da mesma empresa ou de empresa interdependente, com visto eletrônico.',
     'Art. 73, incisos I e II, do Regulamento do ICMS de Valdora; art. 21 da Portaria KEX 53/1996.'),
    ('003.01', -1,
     'Estorno de crédito: mercadoria extraviada, perecida, deteriorada, furtada ou roubada.',
     'Art. 67, inciso I, do Regulamento do ICMS de Valdora.'),
    ('003.02', -1,
     'Estorno de crédito: mercadoria ou serviço cuja saída ou prestação posterior não é tributada, na proporção das saídas isentas.',
     'Art. 67, incisos II e III, do Regulamento do ICMS de Valdora.'),
    ('003.05', -1, 'Outros estornos de créditos.', 'Art. 67 do Regulamento do ICMS de Valdora.'),
    ('007.01', -1,
     'Crédito de bem do ativo permanente, à razão de um quarenta e oito avos por mês.',
     'Art. 61, § 10, do Regulamento do ICMS de Valdora.'),
    ('007.04', -1,
     'Crédito acumulado recebido de outro estabelecimento da mesma empresa, com nota fiscal visada.',
     'Art. 73, inciso I, do Regulamento do ICMS de Valdora.'),
    ('007.05', -1,
     'Crédito acumulado recebido de estabelecimento de empresa interdependente, com nota fiscal visada.',
     'Art. 73, inciso II, do Regulamento do ICMS de Valdora; declaração de interdependência registrada na repartição fiscal.'),
    ('007.06', -1,
     'Crédito acumulado recebido em pagamento de matéria-prima, material secundário ou de embalagem, ou de máquinas e equipamentos para o ativo.',
     'Art. 73, inciso III, alíneas "a" e "b", do Regulamento do ICMS de Valdora.'),
    ('007.07', -1,
     'Crédito acumulado recebido em devolução, por ter sido desfeito o negócio que deu causa à transferência.',
     'Art. 77 do Regulamento do ICMS de Valdora.'),
    ('007.15', -1, 'Crédito lançado fora do período de apuração, com comunicação à repartição fiscal.',
     'Art. 65 do Regulamento do ICMS de Valdora.'),
    ('007.29', -1,
     'Saldo devedor transferido para o estabelecimento centralizador.',
     'Arts. 96 e 97 do Regulamento do ICMS de Valdora.'),
    ('007.30', -1,
     'Saldo credor recebido por transferência de outro estabelecimento do mesmo titular, no regime de apuração centralizada.',
     'Art. 98 do Regulamento do ICMS de Valdora.'),
    ('007.40', -1,
     'Crédito acumulado recebido de outro contribuinte, com visto eletrônico.',
     'Art. 73 do Regulamento do ICMS de Valdora; art. 23 da Portaria KEX 53/1996.'),
    ('007.41', -1,
     'Crédito acumulado reincorporado à conta gráfica, com visto eletrônico.',
     'Art. 76 do Regulamento do ICMS de Valdora; art. 30 da Portaria KEX 53/1996, na redação da Portaria KEX 02/2002.'),
    ('008.01', -1, 'Estorno de débito: imposto recolhido por guia especial e também debitado em nota fiscal.',
     'Art. 63, inciso VII, do Regulamento do ICMS de Valdora.'),
    ('008.04', -1, 'Outros estornos de débitos.', 'Art. 63 do Regulamento do ICMS de Valdora.'),
    ('014.01', -1, 'Recolhimento antecipado do imposto do período.',
     'Art. 60 das Disposições Transitórias do Regulamento do ICMS de Valdora.'),
    ('014.02', -1, 'Incentivo a projeto cultural credenciado pela Secretaria da Cultura.',
     'Lei 8.819/1994 do Estado de Valdora.'),
    ('014.03', -1, 'Outras deduções.', 'Art. 100 do Regulamento do ICMS de Valdora.');

-- Sub-items of the assessment: substitution tax.
INSERT INTO tblQuadroOcorrências (CódSubItem, OpPróprias, Ocorrência, FLegal) VALUES
    ('002.01', 0, 'Complemento do imposto retido por diferença entre a base estimada e o preço final.',
     'Art. 265 do Regulamento do ICMS de Valdora.'),
    ('002.03', 0, 'Imposto retido devido pela entrada de mercadoria sem retenção na origem.',
     'Art. 277 do Regulamento do ICMS de Valdora.'),
    ('003.01', 0, 'Estorno de crédito de imposto retido relativo a devolução não efetivada.',
     'Art. 276 do Regulamento do ICMS de Valdora.'),
    ('007.01', 0,
     'Ressarcimento do imposto retido, por nota fiscal emitida pelo contribuinte substituído e aceita pelo substituto.',
     'Art. 270, inciso II, do Regulamento do ICMS de Valdora; art. 12 da Portaria KEX 17/1999.'),
    ('007.02', 0,
     'Ressarcimento do imposto retido, por pedido do contribuinte substituído deferido pelo Fisco, com lançamento pelo substituto indicado no pedido.',
     'Art. 270, inciso III, do Regulamento do ICMS de Valdora; art. 14 da Portaria KEX 17/1999.'),
    ('007.03', 0, 'Imposto retido em operação interestadual desfeita.',
     'Art. 271 do Regulamento do ICMS de Valdora.'),
    ('008.01', 0, 'Estorno de débito de imposto retido em duplicidade.',
     'Art. 63, inciso VII, do Regulamento do ICMS de Valdora.'),
    ('014.01', 0, 'Recolhimento antecipado do imposto retido no período.',
     'Art. 283 do Regulamento do ICMS de Valdora.'),
    ('014.02', 0, 'Outras deduções do imposto retido.',
     'Art. 283, § 2º, do Regulamento do ICMS de Valdora.');

------------------------------------------------------------------------------------------------
-- Taxpayers
------------------------------------------------------------------------------------------------

INSERT INTO tblContribuinte (IE, RazãoSocial, CNPJ, DataCadastro, Localização, Número, Complemento,
    Bairro, Município, CEP, UF, Telefone, FAX, Email, HomePage, Contato, Observação) VALUES
    ('250114377019', 'Metalúrgica Serra Dourada S.A.', '41.207.336/0001-58', '1987-03-05',
     'Avenida dos Inconfidentes', '2.450', 'Galpões 3 a 7', 'Distrito Industrial', 'Valdora',
     '79.120-040', 'VD', '(54) 3321-4400', '(54) 3321-4455', 'fiscal@serradourada.example',
     'www.serradourada.example', 'Conceição Araújo de Magalhães – Contabilidade Fiscal',
     'Estabelecimento centralizador da apuração de três filiais no Estado, por opção comunicada em 12/01/1999.'
     || char(13, 10)
     || 'Detentora de crédito acumulado por exportação; opera com visto eletrônico desde a implantação do sistema.'
     || char(13, 10) || char(13, 10)
     || 'Substituta tributária nas saídas de autopeças e de ferragens. As filiais substituídas constam do processo KEX 1.043/2000.'),

    ('250226880140', 'Três Irmãos Comércio de Gêneros Alimentícios Ltda. – ME', '58.914.002/0001-73',
     '1996-09-17', 'Rua Quinze de Agosto', '38', 'Loja A', 'Centro', 'Ribeirão Açu', '79.310-000',
     'VD', '(54) 3466-1207', NULL, 'tresirmaos@mercado.example', NULL, 'João Batista Três Irmãos',
     'Enquadrado no regime de estimativa por requerimento. Revisão da parcela fixada em julho de cada ano.'),

    ('250339012558', 'Ótica Bela Vista', NULL, NULL, NULL, NULL, NULL, NULL, 'Nossa Senhora do Ó',
     NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),

    ('250447719306', 'Distribuidora de Combustíveis e Lubrificantes Planalto Ltda.',
     '07.665.481/0002-09', '1999-11-30', 'Rodovia VD-215', 'km 18,5', 'Base de distribuição',
     'Zona rural', 'Estância Velha', '79.455-900', 'VD', '(54) 3502-7700', '(54) 3502-7701',
     'tributos@planalto-combustiveis.example', 'www.planalto-combustiveis.example',
     'Márcia Öberg Guimarães / Antônio Peçanha',
     'INSCRIÇÃO' || char(13, 10)
     || 'Inscrita como substituta tributária nas operações com derivados de petróleo, com álcool carburante e com lubrificantes. O pedido de inscrição foi instruído com o registro no órgão regulador federal, com a prova de capacidade de armazenamento e com a certidão negativa de débitos, e deferido após vistoria na base de Estância Velha.'
     || char(13, 10) || char(13, 10)
     || 'REGIME ESPECIAL' || char(13, 10)
     || 'Autorizada a emitir a nota fiscal da saída de combustível a granel até o encerramento do expediente do dia seguinte, desde que o veículo transite acompanhado do romaneio de carga numerado tipograficamente, de que conste a quantidade a 20 ºC, a densidade e o lacre de cada compartimento. O romaneio é conservado por cinco exercícios, em ordem numérica, à disposição do Fisco.'
     || char(13, 10) || char(13, 10)
     || 'OBSERVAÇÕES DA REPARTIÇÃO' || char(13, 10)
     || '1. O arquivo magnético das operações interestaduais é entregue até o dia 10.' || char(13, 10)
     || '2. As perdas por evaporação acima de 0,6 % são objeto de estorno de crédito.' || char(13, 10)
     || '3. A filial de Barra do Ipê foi baixada em 31/08/2002; os livros estão com o contador.'),

    ('250558143072',
     'Cooperativa Agroindustrial e de Comercialização dos Produtores Rurais, Cafeicultores e Pecuaristas do Vale do Rio Dourado, de Campo Órfão e de São João da Barranca Ltda. – Matriz',
     '63.480.917/0001-20', '1974-06-01', 'Praça do Produtor', 's/nº', NULL, 'Vila Cooperativa',
     'Campo Órfão', '79.600-000', 'VD', '(54) 3640-0010', '(54) 3640-0019',
     'contabilidade@cooperativa-dourado.example', 'www.cooperativa-dourado.example',
     'Departamento de Tributos', NULL),

    ('250661205834', 'Pousada Recanto d''Água Limpa Ltda.', '80.114.559/0001-31', '2003-12-22',
     'Estrada da Cachoeira', '700', NULL, 'Serrinha', 'Águas Claras do Sul', '79.715-000', 'VD',
     '(54) 3718-2210', NULL, 'recepcao@recantodagua.example', 'www.recantodagua.example',
     'Íris Sant''Anna', 'Início de atividade em janeiro de 2004.');

-- The cooperative's remarks: a history of 68 entries, more than the box holds at its usual size.
WITH RECURSIVE histórico(n, texto) AS (
    SELECT 1, 'Histórico do cadastro, da ocorrência mais antiga para a mais recente:'
    UNION ALL
    SELECT n + 1, texto || char(13, 10)
        || strftime('%d/%m/%Y', '1974-06-01', '+' || (n * 157) || ' days') || ' – '
        || CASE n % 4
               WHEN 0 THEN 'Alteração do quadro de diretores, conforme ata registrada.'
               WHEN 1 THEN 'Autorização para impressão de documentos fiscais, séries 1 e D.'
               WHEN 2 THEN 'Inclusão de entreposto de recebimento de café entre as dependências.'
               ELSE 'Visita fiscal de rotina; livros em ordem, sem providências.'
           END
    FROM histórico WHERE n < 69)
UPDATE tblContribuinte
SET Observação = (SELECT texto FROM histórico WHERE n = 69)
WHERE IE = '250558143072';

------------------------------------------------------------------------------------------------
-- Declarations
------------------------------------------------------------------------------------------------

INSERT INTO tblDRQ (NroDRQ, IE, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação,
    SaldoCredAntDig, ICMSFixPerRES, OutrasRES, DeduçõesRPA, SaldoCredAntDigST, DeduçõesST) VALUES
    -- Every report, each with more than one page; debit balances.
    (101, '250114377019', '2003-07-01', NULL, 1, '01', -1, '7B41.C9E0.23D8.F516', 1284093600, 0, 0,
     873554000, 184271000, 250000000),
    -- Credit balances, corrected declaration, not yet consistent.
    (102, '250114377019', '2003-08-01', NULL, 2, '01', 0, NULL, 0, 0, 0, NULL, 320000000, NULL),
    -- Three-digit CFOP codes and the column layouts before 2002.
    (103, '250114377019', '2001-11-01', NULL, 1, '01', -1, '1F90.44AB.7C03.D2E8', 655012345, 0, 0, 0,
     0, 0),
    -- Estimated tax of a year, fixed too high.
    (201, '250226880140', '2001-12-01', '2001-01-01', 1, '02', -1, 'C0DE.81B7.5A36.9F42', 0,
     180000000, 4505000, NULL, 0, NULL),
    -- Estimated tax of a half-year, with tax left to pay.
    (202, '250226880140', '2003-06-01', '2003-01-01', 1, '02', -1, '52D3.0E7F.B81A.64C9', 3120000,
     96000000, NULL, NULL, 0, NULL),
    -- Nulls wherever a column may be Null without ending a report.
    (301, '250339012558', '2002-12-01', NULL, NULL, '03', NULL, NULL, 0, NULL, NULL, NULL, 0, NULL),
    -- Substitution tax under the simplified regime.
    (401, '250447719306', '2003-03-01', NULL, 1, '04', -1, '98A1.6D5C.E702.3BF4', 0, 0, 0, 0, 0,
     120000000),
    -- An unknown regime in a declaration compiled by the authority.
    (402, '250447719306', '2003-04-01', NULL, 3, '05', 0, NULL, 0, 0, 0, 0, 98765000, 0),
    -- Four decimals and halves; detail lines outside every range.
    (501, '250558143072', '2003-05-01', NULL, 1, '01', -1, 'E4B6.2907.1CD8.A35F', 10050, 0, 0, 50,
     0, NULL),
    -- No details at all.
    (601, '250661205834', '2004-01-01', NULL, 1, '01', -1, '0A5D.F3C4.8E12.7B60', 0, 0, 0, 0, 0, 0);

------------------------------------------------------------------------------------------------
-- Declaration 101: operations. The invoices to the free-trade zones are part of the interstate
-- operations, and the CFOP lines of groups 2 and 6 are the sums of these (at the end of this
-- script), so that the reports agree with each other.
------------------------------------------------------------------------------------------------

-- 97 invoices in five groups; the last one of 6.110 stands twice, alike in every column.
INSERT INTO tblZFM_ALC (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 95),
clientes(k, município, cnpj) AS (VALUES
    (0, '0255', '04.301.775/0001-06'), (1, '0255', '84.552.018/0003-77'),
    (2, '0605', '23.087.441/0001-90'), (3, '0301', '05.940.663/0001-18'),
    (4, '0001', '22.871.306/0001-44'), (5, '0257', '63.718.295/0001-02'),
    (6, '0107', '14.306.882/0001-61'), (7, '0261', '34.590.127/0001-83'),
    (8, '0611', '02.663.914/0002-35'), (9, '0259', '10.745.238/0001-59'))
SELECT 101,
       CASE WHEN i < 43 THEN '6.109' WHEN i < 74 THEN '6.110' WHEN i < 80 THEN '6.151'
            WHEN i < 89 THEN '6.910' ELSE '6.949' END,
       printf('%06d', 41207 + 13 * i), date('2003-07-01', '+' || (i * 17 % 31) || ' days'),
       município, cnpj, (185040 + i * i * 7919 % 2600000) * 100
FROM n JOIN clientes ON k = i * 7 % 10
ORDER BY i;

INSERT INTO tblZFM_ALC (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor)
SELECT NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor
FROM tblZFM_ALC WHERE CFOP = '6.110' AND NF = printf('%06d', 41207 + 13 * 73);

INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST)
SELECT NroDRQ, CFOP, e.Código, sum(Valor), 0, 0, 0, 0, 0, 0, 0, 0
FROM tblZFM_ALC JOIN tblMunicípiosZFM_ALC m ON CódMunicípio = MunicípioDest
JOIN tblEstados e ON e.UF = m.UF
WHERE NroDRQ = 101 GROUP BY CFOP, e.Código;

-- Sales to every other state: 12 % to the south and south-east, 7 % to the rest, 18 % to
-- non-taxpayers; 6.401 with tax retained for the state of destination.
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST)
WITH ufs(uf, base, alíquota) AS (
    SELECT Código, (Código * Código * 7919 % 18000 + 2000) * 1363 + Código,
           CASE WHEN substr(Código, 1, 1) IN ('3', '4') AND Código <> '32' THEN 12 ELSE 7 END
    FROM tblEstados WHERE UF <> 'VD'),
linhas(cfop, uf, base1, base2, alíquota, outras, retido) AS (
    SELECT '6.101', uf, base, 0, alíquota, 0, 0 FROM ufs
    UNION ALL SELECT '6.107', uf, 0, base / 19, 18, 0, 0 FROM ufs WHERE uf % 3 <> 0
    UNION ALL SELECT '6.401', uf, base / 6, 0, alíquota, 0, base / 71 FROM ufs WHERE uf % 4 = 1
    UNION ALL SELECT '6.901', uf, 0, 0, 0, base / 23, 0 FROM ufs WHERE uf % 7 = 2
    UNION ALL SELECT '6.556', uf, 0, 0, 0, base / 97, 0 FROM ufs WHERE uf % 9 = 5)
SELECT 101, cfop, uf, (base1 + outras + retido) * 100, base2 * 100, base1 * 100, base2 * 100,
       ((base1 + base2) * alíquota + 50) / 100 * 100, outras * 100, 0, 0, retido * 100
FROM linhas ORDER BY uf, cfop;

-- Purchases from 29 states.
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST)
WITH ufs(uf, base, alíquota) AS (
    SELECT Código, (Código * Código * 4391 % 16000 + 1500) * 709 + Código * 3,
           CASE WHEN substr(Código, 1, 1) IN ('3', '4') AND Código <> '32' THEN 12 ELSE 7 END
    FROM tblEstados WHERE UF NOT IN ('VD', 'RR', 'AP', 'OV')),
linhas(cfop, uf, base, alíquota, outras, petróleo, produtos) AS (
    SELECT '2.101', uf, base, alíquota, 0, 0, 0 FROM ufs
    UNION ALL SELECT '2.352', uf, base / 44, 12, 0, 0, 0 FROM ufs WHERE uf % 2 = 1
    UNION ALL SELECT '2.401', uf, base / 8, alíquota, 0, 0, base / 90 FROM ufs WHERE uf % 3 = 1
    UNION ALL SELECT '2.551', uf, base / 5, alíquota, 0, 0, 0 FROM ufs WHERE uf % 11 = 2
    UNION ALL SELECT '2.556', uf, 0, 0, base / 37, 0, 0 FROM ufs WHERE uf % 5 = 1
    UNION ALL SELECT '2.653', uf, 0, 0, base / 21, base / 77, 0 FROM ufs WHERE uf % 10 = 3)
SELECT 101, cfop, uf, (base + outras + petróleo + produtos) * 100, 0, base * 100, 0,
       (base * alíquota + 50) / 100 * 100, outras * 100, petróleo * 100, produtos * 100, 0
FROM linhas ORDER BY uf, cfop;

-- The CFOP lines of the other groups, amounts in centavos.
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib,
    Outras, ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos)
WITH linhas(cfop, base, alíquota, isentas, outras, retido, substituído, ipi) AS (VALUES
    ('1.101', 231844090, 18,        0,        0,       0,       0, 11592205),
    ('1.102',  68420733, 18,        0,        0,       0,       0,        0),
    ('1.124',  14870500, 18,        0,        0,       0,       0,        0),
    ('1.151',  40211800, 18,        0,        0,       0,       0,        0),
    ('1.201',   3655020, 18,        0,        0,       0,       0,   182751),
    ('1.202',    941277, 18,        0,        0,       0,       0,        0),
    ('1.252',  21480644, 18,        0,        0,       0,       0,        0),
    ('1.302',   1824017, 25,        0,        0,       0,       0,        0),
    ('1.352',   7641280, 12,   930000,        0,       0,       0,        0),
    ('1.401',  49823000, 18,        0,        0, 7140032,       0,        0),
    ('1.403',         0,  0,        0, 15891107,       0, 2188040,        0),
    ('1.501',         0,  0, 38890515,        0,       0,       0,        0),
    ('1.551',  24000000, 18,        0,        0,       0,       0,  1200000),
    ('1.556',         0,  0,        0,  4123358,       0,       0,        0),
    ('1.601',         0,  0,        0,  3560000,       0,       0,        0),
    ('1.653',         0,  0,        0,  5870012,       0,  733450,        0),
    ('1.901',         0,  0,        0,  6120000,       0,       0,        0),
    ('1.949',         0,  0,        0,   735510,       0,       0,        0),
    ('3.101',  61248055, 18,        0,        0,       0,       0,  4899844),
    ('3.102',  14800000, 18,        0,        0,       0,       0,        0),
    ('3.551',   9050000, 18,        0,        0,       0,       0,        0),
    ('3.949',         0,  0,        0,   231000,       0,       0,        0),
    ('5.101', 481265540, 18,        0,        0,       0,       0, 24063277),
    ('5.102', 120631875, 18,        0,        0,       0,       0,        0),
    ('5.124',   9645000, 18,        0,        0,       0,       0,        0),
    ('5.151',  73820000, 18,        0,        0,       0,       0,        0),
    ('5.201',   1894410, 12,        0,        0,       0,       0,    94721),
    ('5.352',   1250000, 12,        0,        0,       0,       0,        0),
    ('5.401', 164000000, 18,        0,        0, 31248000,      0,  8200000),
    ('5.403',         0,  0,        0, 28451236,       0,       0,        0),
    ('5.405',         0,  0,        0, 19522048,       0, 2214090,        0),
    ('5.501',         0,  0, 41000000,        0,       0,       0,        0),
    ('5.551',         0,  0,  4800000,        0,       0,       0,        0),
    ('5.601',         0,  0,        0,  3560000,       0,       0,        0),
    ('5.656',         0,  0,        0,  1284470,       0,  160555,        0),
    ('5.901',         0,  0,        0,  8831000,       0,       0,        0),
    ('5.910',    987025, 18,        0,        0,       0,       0,    49351),
    ('5.949',         0,  0,        0,  1532099,       0,       0,        0),
    ('7.101',         0,  0, 294011860,       0,       0,       0,        0),
    ('7.102',         0,  0, 35678000,        0,       0,       0,        0),
    ('7.201',         0,  0,  1200000,        0,       0,       0,        0),
    ('7.501',         0,  0, 38890515,        0,       0,       0,        0),
    ('7.949',         0,  0,        0,   640000,       0,       0,        0))
SELECT 101, cfop, (base + isentas + outras + retido + ipi) * 100, base * 100,
       (base * alíquota + 50) / 100 * 100, isentas * 100, outras * 100, 0, retido * 100,
       substituído * 100, ipi * 100
FROM linhas;

------------------------------------------------------------------------------------------------
-- Declaration 101: sub-items and what supports them. An entry whose amount is left open here has
-- supporting rows and gets their sum.
------------------------------------------------------------------------------------------------

INSERT INTO tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) VALUES
    (101, '002.01', 1001,  124803600, -1),
    (101, '002.02', 1002,   81140000, -1),
    (101, '002.10', 1003,       NULL, -1),
    (101, '002.11', 1004,       NULL, -1),
    (101, '002.18', 1005,       NULL, -1),
    (101, '002.18', 1006,       NULL, -1),
    (101, '002.19', 1007,       NULL, -1),
    (101, '002.20', 1008,       NULL, -1),
    (101, '002.21', 1009,       NULL, -1),
    (101, '003.01', 1010,   17223350, -1),
    (101, '003.02', 1011,  943118000, -1),
    (101, '003.05', 1012,    4409000, -1),
    (101, '007.01', 1013,   50000000, -1),
    (101, '007.04', 1014,       NULL, -1),
    (101, '007.05', 1015,       NULL, -1),
    (101, '007.06', 1016,       NULL, -1),
    (101, '007.07', 1017,       NULL, -1),
    (101, '007.15', 1018,   38801175, -1),
    (101, '007.29', 1019,       NULL, -1),
    (101, '007.30', 1020,       NULL, -1),
    (101, '007.40', 1021,       NULL, -1),
    (101, '007.40', 1022,       NULL, -1),
    (101, '007.41', 1023,       NULL, -1),
    (101, '008.01', 1024,   66510000, -1),
    (101, '008.04', 1025,   12007500, -1),
    (101, '014.02', 1026,  273554000, -1),
    (101, '014.01', 1027,  500000000, -1),
    (101, '014.03', 1028,  100000000, -1),
    (101, '002.01', 1029,   31870080,  0),
    (101, '002.03', 1030,  208844500,  0),
    (101, '003.01', 1031,    9000000,  0),
    (101, '007.01', 1032,       NULL,  0),
    (101, '007.01', 1033,       NULL,  0),
    (101, '007.02', 1034,       NULL,  0),
    (101, '007.03', 1035,   14425000,  0),
    (101, '008.01', 1036,    7766040,  0),
    (101, '014.01', 1037,  200000000,  0),
    (101, '014.02', 1038,   50000000,  0);

-- Senders of transferred tax and of accumulated credit.
INSERT INTO tblIEsRemetente (Código, IERemetente, Valor)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 23),
entradas(código, linhas, menor) AS (VALUES
    (1005, 9, 318040), (1006, 2, 2200000), (1007, 14, 90510), (1014, 7, 415000), (1015, 16, 122075),
    (1016, 24, 33460), (1017, 1, 187500), (1019, 11, 240300), (1020, 6, 705588))
SELECT código, printf('250%06d%03d', 114377 + (código * 37 + i * 9973) % 800000, i * 19 + 11),
       (menor + i * (código * 61 + i * 4507) % 350000) * 100
FROM entradas JOIN n ON i < linhas ORDER BY código, i;

-- Electronic authorisations of accumulated credit.
INSERT INTO tblRecibosCredito (Código, CodAutorização, Valor)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 18),
entradas(código, linhas, menor) AS (VALUES
    (1008, 12, 150000), (1009, 5, 880020), (1021, 19, 62045), (1022, 3, 1040000), (1023, 8, 210099))
SELECT código, printf('VE-2003-%04d-%06d', 600 + código % 100 * 3 + i, 41000 + código * 7 + i * 113),
       (menor + i * (código * 83 + i * 2903) % 270000) * 100
FROM entradas JOIN n ON i < linhas ORDER BY código, i;

-- Substitutes that refund retained tax, by invoice (002.10) or by period (002.11).
INSERT INTO tblIESubstituto (Código, IESubstituto, NF, DataInicio, DataFim, Valor)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 27),
entradas(código, linhas, menor) AS (VALUES (1003, 28, 21040), (1004, 13, 133333))
SELECT código, printf('250%09d', 500318114 + (i / 3) * 7411003),
       CASE código WHEN 1003 THEN printf('%06d', 9014 + i * 77) END,
       date('2003-07-01', '-' || (1 + i % 5) || ' months'),
       date('2003-07-01', '-' || (i % 2) || ' months'),
       (menor + i * (código * 29 + i * 3301) % 190000) * 100
FROM entradas JOIN n ON i < linhas ORDER BY código, i;

-- Substituted taxpayers that are refunded, by invoice (007.01) or by granted request (007.02).
INSERT INTO tblIESubstituido (Código, IESubstituido, NF, Valor)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 21),
entradas(código, linhas, menor) AS (VALUES (1032, 22, 18075), (1033, 4, 200000), (1034, 15, 64010))
SELECT código, printf('250%09d', 610220017 + (i / 2) * 9130441),
       CASE WHEN código < 1034 THEN printf('%06d', 52100 + código % 2 * 4000 + i * 31) END,
       (menor + i * (código * 17 + i * 1999) % 120000) * 100
FROM entradas JOIN n ON i < linhas ORDER BY código, i;

UPDATE tblOcorrências
SET Valor = (SELECT sum(Valor) FROM (
        SELECT Código, Valor FROM tblIEsRemetente UNION ALL
        SELECT Código, Valor FROM tblRecibosCredito UNION ALL
        SELECT Código, Valor FROM tblIESubstituto UNION ALL
        SELECT Código, Valor FROM tblIESubstituido) apoio
    WHERE apoio.Código = tblOcorrências.Código)
WHERE NroDRQ = 101 AND Valor IS NULL;

------------------------------------------------------------------------------------------------
-- Declaration 101: additional information, exports, payments
------------------------------------------------------------------------------------------------

INSERT INTO tblMIDAX (NroDRQ, CódMIDAX, Município, Valor)
WITH códigos(código, parte) AS (VALUES
    ('1.01', 3), ('1.03', 2), ('1.04', 7), ('2.01', 5), ('2.03', 1))
SELECT 101, código, CódMunicípio,
       (180050 + parte * CódMunicípio * 7 % 4100000 + substr(CódMunicípio, 3)) * 100
FROM tblMunicípios JOIN códigos
ON (CAST(substr(CódMunicípio, 4, 3) AS INTEGER) + parte) % 4 <> 0
ORDER BY CódMunicípio DESC, código;

INSERT INTO tblMIDAX (NroDRQ, CódMIDAX, Município, Valor) VALUES
    (101, '3.01', '6002002', 3321114350),
    (101, '3.04', '6002002', 4988260500),
    (101, '3.03', '6002002',  738200000),
    (101, '3.05', '6002002', 1495100000),
    (101, '3.02', '6002002',   11845090),
    (101, '3.08', '6002002', 3124800000),
    (101, '3.06', '6002002',   22500000),
    (101, '3.07', '6002002',  214066600),
    (101, '3.09', '6002002',  587001200),
    (101, '3.11', '6002002',   41290250),
    (101, '3.10', '6002002',    7350000);

-- 163 export registrations.
INSERT INTO tblRegistroExportação (NroDRQ, RE)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 162)
SELECT 101, printf('03/%07d-%03d', 418203 + i / 4 * 131, i % 4 + 1) FROM n ORDER BY i * 61 % 163;

------------------------------------------------------------------------------------------------
-- The other declarations: operations
------------------------------------------------------------------------------------------------

-- 103, before 2002: sales to 28 states, purchases from 9.
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST)
WITH ufs(uf, base, alíquota) AS (
    SELECT Código, (Código * Código * 5323 % 15000 + 1800) * 811 + Código * 7,
           CASE WHEN substr(Código, 1, 1) IN ('3', '4') AND Código <> '32' THEN 12 ELSE 7 END
    FROM tblEstados WHERE UF NOT IN ('VD', 'AC', 'AM', 'AP', 'RR')),
linhas(cfop, uf, contribuinte, outro, alíquota, outras, produtos, retido) AS (
    SELECT '2.11', uf, base / 2, 0, alíquota, 0, 0, 0 FROM ufs WHERE uf % 4 = 1
    UNION ALL SELECT '2.62', uf, base / 40, 0, 12, 0, 0, 0 FROM ufs WHERE uf % 8 = 1
    UNION ALL SELECT '2.97', uf, 0, 0, 0, base / 30, 0, 0 FROM ufs WHERE uf % 20 = 1
    UNION ALL SELECT '2.71', uf, base / 5, 0, alíquota, 0, base / 50, 0 FROM ufs WHERE uf % 16 = 1
    UNION ALL SELECT '6.11', uf, base, 0, alíquota, 0, 0, 0 FROM ufs
    UNION ALL SELECT '6.18', uf, 0, base / 25, 18, 0, 0, 0 FROM ufs WHERE uf % 2 = 1
    UNION ALL SELECT '6.71', uf, base / 9, 0, alíquota, 0, 0, base / 100 FROM ufs WHERE uf % 5 = 1
    UNION ALL SELECT '6.99.1', uf, 0, 0, 0, base / 60, 0, 0 FROM ufs WHERE uf % 10 = 2)
SELECT 103, cfop, uf, (contribuinte + outras + produtos + retido) * 100, outro * 100,
       contribuinte * 100, outro * 100, ((contribuinte + outro) * alíquota + 50) / 100 * 100,
       outras * 100, 0, produtos * 100, retido * 100
FROM linhas ORDER BY uf, cfop;

-- 102, 401 and 501, amounts in centavos.
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST)
WITH linhas(drq, cfop, uf, base, alíquota, outras, petróleo, produtos, retido) AS (VALUES
    (102, '2.101', '35', 188410055, 12,        0,       0,       0,        0),
    (102, '2.101', '31',  94221000, 12,        0,       0,       0,        0),
    (102, '2.101', '15',  12006013,  7,        0,       0,       0,        0),
    (102, '2.401', '33',   8803700, 12,        0,       0,  704296,        0),
    (102, '6.101', '35',  40112090, 12,        0,       0,       0,        0),
    (102, '6.101', '41',   7316644, 12,        0,       0,       0,        0),
    (102, '6.101', '25',   2980511,  7,        0,       0,       0,        0),
    (401, '2.652', '33',         0,  0, 61804420, 9270663,       0,        0),
    (401, '2.652', '31',         0,  0, 20711009, 3106651,       0,        0),
    (401, '6.655', '52',         0,  0, 33050790,       0,       0,  4957618),
    (401, '6.655', '50',         0,  0, 17294400,       0,       0,  2594160),
    (401, '6.655', '17',         0,  0,  9006115,       0,       0,  1350917),
    (501, '2.101', '31',   3310000, 12,        0,       0,       0,        0),
    (501, '6.101', '35',  22480600, 12,        0,       0,       0,        0),
    (501, '6.101', '33',   9150000, 12,        0,       0,       0,        0),
    (501, '6.109', '13',         0,  0,        0,       0,       0,        0),
    -- A code that no group of the summaries takes, and that their totals count all the same.
    (501, '6.451', '31',   1200000, 12,        0,       0,       0,        0))
SELECT drq, cfop, uf, (base + outras + petróleo + produtos + retido) * 100, 0, base * 100, 0,
       (base * alíquota + 50) / 100 * 100, outras * 100, petróleo * 100, produtos * 100,
       retido * 100
FROM linhas;

INSERT INTO tblZFM_ALC (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor) VALUES
    (501, '6.109', '018802', '2003-05-08', '0255', '04.301.775/0001-06', 128000000),
    (501, '6.109', '018831', '2003-05-19', '0605', '23.087.441/0001-90',  96450000),
    (501, '6.109', '018790', '2003-05-02', '0255', '04.301.775/0001-06', 204317500);

UPDATE tblDetalhesInterUFs
SET ValorContábil_1 = (SELECT sum(Valor) FROM tblZFM_ALC WHERE NroDRQ = 501)
WHERE NroDRQ = 501 AND CFOP = '6.109';

-- Lines of the groups 1, 3, 5 and 7, amounts in centavos.
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib,
    Outras, ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos)
WITH linhas(drq, cfop, base, alíquota, isentas, outras, retido, substituído, ipi) AS (VALUES
    (102, '1.101', 214307500, 18,       0,        0,       0,       0,  10715375),
    (102, '1.252',  19980711, 18,       0,        0,       0,       0,         0),
    (102, '1.403',         0,  0,       0,  6208041,  931206,       0,         0),
    (102, '5.101', 138650090, 18,       0,        0,       0,       0,   6932505),
    (102, '5.401',  21900000, 18,       0,        0, 2628000,       0,   1095000),
    (102, '7.101',         0,  0, 90244318,       0,       0,       0,         0),
    (103, '1.11',  146603175, 18,       0,        0,       0,       0,   7330159),
    (103, '1.12',   38100420, 18,       0,        0,       0,       0,         0),
    (103, '1.22',   20455000, 18,       0,        0,       0,       0,         0),
    (103, '1.31',    1870206, 18,       0,        0,       0,       0,         0),
    (103, '1.42',   15200833, 18,       0,        0,       0,       0,         0),
    (103, '1.52',    1204417, 25,       0,        0,       0,       0,         0),
    (103, '1.62',    4470090, 12,  310000,        0,       0,       0,         0),
    (103, '1.71',   22150000, 18,       0,        0, 3200675,       0,         0),
    (103, '1.91',    8800000, 18,       0,        0,       0,       0,    440000),
    (103, '1.97',          0,  0,       0,  2733105,       0,       0,         0),
    (103, '1.99',          0,  0,       0,   918240,       0,       0,         0),
    (103, '1.99.1',        0,  0,       0,  1500000,       0,       0,         0),
    (103, '1.99.9',        0,  0,       0,   120050,       0,       0,         0),
    (103, '3.11',   30771204, 18,       0,        0,       0,       0,   2461696),
    (103, '3.91',    6020000, 18,       0,        0,       0,       0,         0),
    (103, '3.99',          0,  0,       0,   187733,       0,       0,         0),
    (103, '5.11',  301420088, 18,       0,        0,       0,       0,  15071004),
    (103, '5.12',   66713500, 18,       0,        0,       0,       0,         0),
    (103, '5.13',    4812200, 18,       0,        0,       0,       0,         0),
    (103, '5.21',   41006000, 18,       0,        0,       0,       0,         0),
    (103, '5.31',     733915, 12,       0,        0,       0,       0,         0),
    (103, '5.62',     990000, 12,       0,        0,       0,       0,         0),
    (103, '5.71',   88000000, 18,       0,        0, 14960000,      0,   4400000),
    (103, '5.75',          0,  0,       0, 11907033,       0,       0,         0),
    (103, '5.86',          0,  0, 21500000,       0,       0,       0,         0),
    (103, '5.91',          0,  0,  3900000,       0,       0,       0,         0),
    (103, '5.95',          0,  0,        0,  640018,       0,       0,         0),
    (103, '5.99',     418800, 18,        0,  770000,       0,       0,         0),
    (103, '5.99.1',        0,  0,        0, 1500000,       0,       0,         0),
    (103, '5.99.9',        0,  0,        0,   33366,       0,       0,         0),
    (103, '7.11',          0,  0, 204118097,      0,       0,       0,         0),
    (103, '7.31',          0,  0,   880000,       0,       0,       0,         0),
    (103, '7.99',          0,  0,        0,  412500,       0,       0,         0),
    (201, '1.12',   31845000, 18,        0,       0,       0,       0,         0),
    (201, '1.97',          0,  0,        0,  188015,       0,       0,         0),
    (201, '5.12',   41230000, 18,        0,       0,       0,       0,         0),
    (202, '1.102',  19006044, 18,        0,       0,       0,       0,         0),
    (202, '1.403',         0,  0,        0, 2214078,       0,  332112,         0),
    (202, '5.102',  27144010, 18,        0,       0,       0,       0,         0),
    (202, '5.405',         0,  0,        0, 3008920,       0,       0,         0),
    (401, '1.652',         0,  0,        0, 88034170, 13205126,     0,         0),
    (401, '1.653',         0,  0,        0,  722840,       0,  108426,         0),
    (401, '5.655',         0,  0,        0, 197330655, 29599598,    0,         0),
    (401, '5.656',         0,  0,        0,  4120900,  618135,      0,         0),
    (401, '5.949',         0,  0,        0,   250000,       0,       0,         0),
    (402, '1.652',         0,  0,        0,  9050000, 1357500,       0,         0),
    (402, '5.655',         0,  0,        0, 12400300, 1860045,       0,         0),
    (402, '5.102',    310050, 18,        0,       0,       0,       0,         0))
SELECT drq, cfop, (base + isentas + outras + retido + ipi) * 100, base * 100,
       (base * alíquota + 50) / 100 * 100, isentas * 100, outras * 100,
       iif(Ref1 < '2002', retido * 100, 0), iif(Ref1 < '2002', 0, retido * 100),
       substituído * 100, ipi * 100
FROM linhas JOIN tblDRQ ON NroDRQ = drq;

-- 501: amounts with four decimals, whose sums end in halves of a centavo.
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib,
    Outras, ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos) VALUES
    (501, '1.101',  684031250,  684031250,  123125625,         0,       0, 0,       0,       0, 0),
    (501, '1.102',  212500175,  212500175,   38250032,         0,       0, 0,       0,       0, 0),
    (501, '1.403',   98765432,          0,          0,         0, 98765432, 0,      0, 9876550, 0),
    (501, '1.949',       9950,          0,          0,         0,    9950, 0,       0,       0, 0),
    (501, '5.101', 1904127750, 1904127750,  342742995,         0,       0, 0,       0,       0, 0),
    (501, '5.102',  333366650,  333366650,   60005997,         0,       0, 0,       0,       0, 0),
    (501, '5.403',   45454545,          0,          0,         0, 43290043, 0, 2164502,       0, 0),
    (501, '5.949',         50,          0,          0,         0,      50, 0,       0,       0, 0),
    (501, '7.101', 5120449000,          0,          0, 5120449000,      0, 0,       0,       0, 0);

-- 301: Nulls in every column that may hold one, a code that is Null, a state without a row.
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib,
    Outras, ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos) VALUES
    (301, '1.102', 18500000, NULL, NULL, 18500000, NULL, NULL, NULL, NULL, NULL),
    (301, '5.102', 30250000, NULL, NULL, NULL, 30250000, NULL, NULL, NULL, NULL),
    (301, '6.109',  4100000, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
    (301, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF) VALUES (301, '2.102', '35'), (301, '6.109', '99');
INSERT INTO tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1) VALUES
    (301, '6.109', '13', 4100000);
INSERT INTO tblZFM_ALC (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor) VALUES
    (301, '6.109', '000117', '2002-12-10', '0255', NULL, 4100000),
    (301, '6.109', NULL, NULL, '0257', '63.718.295/0001-02', NULL);

-- The CFOP lines of groups 2 and 6 (but for 301, which states its own): what is neither base nor
-- other nor tax retained is exempt.
INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib,
    Outras, ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos)
WITH somas(drq, cfop, contábil, base, imposto, outras, retido) AS (
    SELECT NroDRQ, CFOP, sum(ValorContábil_1 + ValorContábil_2),
           sum(BaseCálculo_1 + BaseCálculo_2), sum(Imposto), sum(Outras),
           sum(PetróleoEnergia + OutrosProdutos + ICMSCobradoST)
    FROM tblDetalhesInterUFs WHERE NroDRQ <> 301 GROUP BY NroDRQ, CFOP)
SELECT drq, cfop, contábil, base, imposto, contábil - base - outras - retido, outras,
       iif(Ref1 < '2002', retido, 0), iif(Ref1 < '2002', 0, retido), 0, 0
FROM somas JOIN tblDRQ ON NroDRQ = drq ORDER BY drq, cfop;

------------------------------------------------------------------------------------------------
-- The other declarations: sub-items, additional information, exports
------------------------------------------------------------------------------------------------

INSERT INTO tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) VALUES
    (102, '002.01', 1101,   8804100, -1),
    (102, '007.30', 1102, 120000000, -1),
    (102, '007.01', 1103,  44500000,  0),
    (103, '002.01', 1201,  31240055, -1),
    (103, '002.18', 1202,  96000000, -1),
    (103, '003.02', 1203, 512003350, -1),
    (103, '007.06', 1204, 208300000, -1),
    (103, '007.01', 1205,  17705000,  0),
    (201, '002.01', 1301,   1200000, -1),
    (201, '008.01', 1302,    120000, -1),
    (202, '003.01', 1401,   2450075, -1),
    (202, '014.03', 1402,  96000000, -1),
    (301, '002.01', 1501,      NULL, -1),
    (301, '007.04', 1502,      NULL, -1),
    (301, '007.01', 1503,      NULL,  0),
    (301, '007.99', 1504,   1000000, -1),  -- no catalogue row
    (401, '002.03', 1601,  66170000,  0),
    (401, '007.01', 1602, 250000000,  0),
    (401, '007.02', 1603, 180050000,  0),
    (401, '014.01', 1604, 120000000,  0),
    (402, '002.01', 1701,   3105500,  0),
    (501, '002.01', 1801,     12350, -1),
    (501, '007.01', 1802,  20833350, -1),
    (501, '008.04', 1803,        50, -1);

INSERT INTO tblIEsRemetente (Código, IERemetente, Valor) VALUES
    (1102, '250114377108', 70000000), (1102, '250114377205', 50000000),
    (1202, '250114377108', 96000000),
    (1204, '250730441886', 108300000), (1204, '250730441983', 100000000),
    (1502, NULL, NULL);
INSERT INTO tblIESubstituido (Código, IESubstituido, NF, Valor) VALUES
    (1103, '250820033117', '007713', 44500000),
    (1205, '250820033117', '004009', 17705000),
    (1503, NULL, NULL, NULL),
    (1602, '250901128440', '061120', 140000000), (1602, '250901128440', '061077', 60000000),
    -- The rows of this entry add up to less than it declares.
    (1602, '250877300215', '000451', 25000000),
    (1603, '250901128440', NULL, 180050000);

INSERT INTO tblMIDAX (NroDRQ, CódMIDAX, Município, Valor) VALUES
    (102, '3.01', '6002002', 120088000),
    (103, '1.04', '6000907',  55011000),
    (103, '1.04', '6000105',  18200350),
    (103, '2.01', '6001608',  40990000),
    (201, '1.03', '6001707',  12040000),
    (301, '1.03', '6999999',    500000),  -- a town without a row
    (301, '1.03', '6001509',      NULL),
    (301, '3.07', '6001509',      NULL),
    (401, '2.01', '6001103', 310500000),
    (401, '2.01', '6000402',  22880000),
    (501, '1.01', '6000600', 903300075),
    (501, '1.02', '6000600', 184020000),
    (501, '1.01', '6001806', 477125050),
    (501, '1.03', '6001806',      9950),
    (501, '1.01', '6001301',  66100000),
    (501, '3.10', '6000600', 240000000);

INSERT INTO tblRegistroExportação (NroDRQ, RE)
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 30)
SELECT 501, printf('03/%07d-001', 260114 + i * 77) FROM n;
INSERT INTO tblRegistroExportação (NroDRQ, RE) VALUES
    (103, '01/0977310-001'), (103, '01/0977310-002'), (301, NULL), (301, '02/0000001-001');

------------------------------------------------------------------------------------------------
-- Payments: what each declaration leaves to pay
------------------------------------------------------------------------------------------------

INSERT INTO tblPagamento (NroDRQ, OpPróprias, Data, Valor) VALUES
    -- 101: as many as turn the page in the second group.
    (101, -1, '2003-08-01',  233945900),
    (101, -1, '2003-08-04',  333904600),
    (101, -1, '2003-08-05',  280735000),
    (101, -1, '2003-08-06',  250960100),
    (101, -1, '2003-08-07',  244579800),
    (101, -1, '2003-08-08',  261594000),
    (101, -1, '2003-08-11',  302002800),
    (101, -1, '2003-08-12',  365806300),
    (101, -1, '2003-08-13',  276481500),
    (101, -1, '2003-08-14',  387074100),
    (101, -1, '2003-08-15',  344538500),
    (101, -1, '2003-08-18',  325397400),
    (101, -1, '2003-08-19',  329651000),
    (101, -1, '2003-08-20',  357299100),
    (101, -1, '2003-08-21',  231819100),
    (101, -1, '2003-08-22',  306256400),
    (101, -1, '2003-08-25',  227565500),
    (101, -1, '2003-08-26',  348792000),
    (101, -1, '2003-08-27',  316890300),
    (101, -1, '2003-08-28',  308383200),
    (101, -1, '2003-08-29',  323270600),
    (101, -1, '2003-09-01',  361553700),
    (101,  0, '2003-08-04',  155125100),
    (101,  0, '2003-08-06',  122657000),
    (101,  0, '2003-08-08',  100109800),
    (101,  0, '2003-08-11',  162340200),
    (101,  0, '2003-08-13',  159634500),
    (101,  0, '2003-08-15',   91992800),
    (101,  0, '2003-08-18',  109128700),
    (101,  0, '2003-08-20',  136185400),
    (101,  0, '2003-08-22',   98306000),
    (101,  0, '2003-08-25',  145204300),
    (101,  0, '2003-08-27',  127166500),
    (101,  0, '2003-08-29',  119049500),
    (101,  0, '2003-09-01',  120853200),
    (101,  0, '2003-09-03',  132578400),
    -- 103
    (103, -1, '2001-12-03', 1106665800),
    (103, -1, '2001-12-10', 1503713800),
    (103, -1, '2001-12-17', 1292518000),
    (103, -1, '2001-12-24', 1174248600),
    (103,  0, '2001-12-10',  651502900),
    (103,  0, '2001-12-17',  506724600),
    -- 201: the twelve parts of the estimated tax.
    (201, -1, '2001-02-15',   15000000),
    (201, -1, '2001-03-15',   15000000),
    (201, -1, '2001-04-15',   15000000),
    (201, -1, '2001-05-15',   15000000),
    (201, -1, '2001-06-15',   15000000),
    (201, -1, '2001-07-15',   15000000),
    (201, -1, '2001-08-15',   15000000),
    (201, -1, '2001-09-15',   15000000),
    (201, -1, '2001-10-15',   15000000),
    (201, -1, '2001-11-15',   15000000),
    (201, -1, '2001-12-15',   15000000),
    (201, -1, '2002-01-15',   19505000),
    -- 202: the parts of the half-year and what was left to pay.
    (202, -1, '2003-02-15',   16000000),
    (202, -1, '2003-03-15',   16000000),
    (202, -1, '2003-04-15',   16000000),
    (202, -1, '2003-05-15',   16000000),
    (202, -1, '2003-06-15',   16000000),
    (202, -1, '2003-07-15',   16000000),
    (202, -1, '2003-07-15',   49813500),
    -- 301: neither kind nor date given.
    (301, NULL, NULL, 1000000),
    -- 401, 402, 501
    (401,  0, '2003-04-03',  405790000),
    (401,  0, '2003-04-10',  405790000),
    (401,  0, '2003-04-22',  405800700),
    (402, -1, '2003-05-09',    5580900),
    (501, -1, '2003-06-11',  300000000),
    (501, -1, '2003-06-25',  274789300),
    (501,  0, '2003-06-09',    2164500);

------------------------------------------------------------------------------------------------
-- The payment slip to print: texts, as they stand on the form
------------------------------------------------------------------------------------------------

INSERT INTO tblVELO (Contribuinte, Endereço, Município, UF, Telefone, Observações, DataVencimento,
    CódigoReceita, IE, CPF_CNPJ, InscriçãoDívidaAtiva, Referência, NroAIIM_DI_PARCEL, ValorReceita,
    JurosMora, MultaMora_Infração, AcréscimoFinanceiro, HonoráriosAdvocatícios, ValorTotal) VALUES
    ('METALÚRGICA SERRA DOURADA S.A.',
     'AVENIDA DOS INCONFIDENTES, 2.450 – GALPÕES 3 A 7 – DISTRITO INDUSTRIAL', 'VALDORA', 'VD',
     '(54) 3321-4400',
     'ICMS próprio da referência 07/2003, última parcela, recolhida fora do prazo: juros de 1 % e multa de 2 % sobre o valor da receita, conforme demonstrativo arquivado com a DRQ 101.'
     || char(13, 10) || 'Recolhimento efetuado pelo estabelecimento centralizador.',
     '01/09/2003', '046-2', '250.114.377.019', '41.207.336/0001-58', '', '07/2003', '',
     '36.155,37', '361,55', '723,11', '0,00', '0,00', '37.240,03');
