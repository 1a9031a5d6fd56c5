<?xml version="1.0" encoding="UTF-8"?>
<!-- Writes the IDL of the realistic mix of the benchmarks, as somebody would who has a stylesheet
     processor and no exporter. It knows the constructs of the mix and no others, checks nothing, and
     relies on declarations that stand in order. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
    xmlns:xmi="http://www.omg.org/spec/XMI/20131001" xmlns:CORBA="http://idlexport/schemas/CORBA/1">
  <xsl:output method="text"/>
  <xsl:strip-space elements="*"/>
  <xsl:key name="id" match="*" use="@xmi:id"/>
  <xsl:key name="mark" match="CORBA:*"
      use="@base_Package | @base_Class | @base_Enumeration | @base_Interface | @base_Operation"/>

  <xsl:template match="/">
    <xsl:text>#ifndef model_idl&#10;#define model_idl&#10;&#10;</xsl:text>
    <xsl:text>// CORBA IDL exported from Zentrio&#10;&#10;</xsl:text>
    <xsl:apply-templates select="key('id', //manifestation/@supplier)"/>
    <xsl:text>&#10;&#10;#endif&#10;</xsl:text>
  </xsl:template>

  <xsl:template match="packagedElement">
    <xsl:variable name="mark" select="local-name(key('mark', @xmi:id))"/>
    <xsl:choose>
      <xsl:when test="$mark = 'CORBAModule'">
        <xsl:call-template name="body"><xsl:with-param name="kind">module </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$mark = 'CORBAStruct'">
        <xsl:call-template name="body"><xsl:with-param name="kind">struct </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$mark = 'CORBAException'">
        <xsl:call-template name="body"><xsl:with-param name="kind">exception </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$mark = 'CORBAInterface'">
        <xsl:call-template name="body"><xsl:with-param name="kind">interface </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$mark = 'CORBAEnum'">
        <xsl:call-template name="body"><xsl:with-param name="kind">enum </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$mark = 'CORBASequence'">
        <xsl:text>&#10;typedef sequence&lt;</xsl:text>
        <xsl:apply-templates select="ownedAttribute" mode="type"/>
        <xsl:value-of select="concat('> ', @name, ';')"/>
      </xsl:when>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="body">
    <xsl:param name="kind"/>
    <xsl:text>&#10;</xsl:text>
    <xsl:apply-templates select="ownedComment"/>
    <xsl:value-of select="concat('&#10;', $kind, @name)"/>
    <xsl:for-each select="generalization">
      <xsl:value-of select="concat(' : ', key('id', @general)/@name)"/>
    </xsl:for-each>
    <xsl:text> {</xsl:text>
    <xsl:apply-templates select="packagedElement | ownedLiteral | ownedAttribute | ownedOperation"/>
    <xsl:text>&#10;};</xsl:text>
  </xsl:template>

  <xsl:template match="ownedComment">
    <xsl:value-of select="concat('&#10;// ', body)"/>
  </xsl:template>

  <xsl:template match="ownedLiteral">
    <xsl:if test="position() > 1">, </xsl:if>
    <xsl:value-of select="concat('&#10;', @name)"/>
  </xsl:template>

  <xsl:template match="ownedAttribute">
    <xsl:apply-templates select="ownedComment"/>
    <xsl:text>&#10;</xsl:text>
    <xsl:if test="../@xmi:type = 'uml:Interface'">
      <xsl:if test="@isReadOnly = 'true'">readonly </xsl:if>
      <xsl:text>attribute </xsl:text>
    </xsl:if>
    <xsl:apply-templates select="." mode="type"/>
    <xsl:value-of select="concat(' ', @name, ';')"/>
  </xsl:template>

  <xsl:template match="ownedOperation">
    <xsl:variable name="result" select="ownedParameter[@direction = 'return']"/>
    <xsl:apply-templates select="ownedComment"/>
    <xsl:text>&#10;</xsl:text>
    <xsl:choose>
      <xsl:when test="key('mark', @xmi:id)/@overrideIsDefaultAsync = 'false'">oneway void</xsl:when>
      <xsl:when test="$result"><xsl:apply-templates select="$result" mode="type"/></xsl:when>
      <xsl:otherwise>void</xsl:otherwise>
    </xsl:choose>
    <xsl:value-of select="concat(' ', @name, '(')"/>
    <xsl:apply-templates select="ownedParameter[not(@direction = 'return')]"/>
    <xsl:text>)</xsl:text>
    <xsl:if test="@raisedException">
      <xsl:text> raises (</xsl:text>
      <xsl:call-template name="raised">
        <xsl:with-param name="ids" select="@raisedException"/>
      </xsl:call-template>
      <xsl:text>)</xsl:text>
    </xsl:if>
    <xsl:text>;</xsl:text>
  </xsl:template>

  <xsl:template name="raised">
    <xsl:param name="ids"/>
    <xsl:choose>
      <xsl:when test="contains($ids, ' ')">
        <xsl:value-of select="concat(key('id', substring-before($ids, ' '))/@name, ', ')"/>
        <xsl:call-template name="raised">
          <xsl:with-param name="ids" select="substring-after($ids, ' ')"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="key('id', $ids)/@name"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="ownedParameter">
    <xsl:if test="position() > 1">, </xsl:if>
    <xsl:choose>
      <xsl:when test="@direction"><xsl:value-of select="@direction"/></xsl:when>
      <xsl:otherwise>in</xsl:otherwise>
    </xsl:choose>
    <xsl:text> </xsl:text>
    <xsl:apply-templates select="." mode="type"/>
    <xsl:value-of select="concat(' ', @name)"/>
  </xsl:template>

  <xsl:template match="*" mode="type">
    <xsl:choose>
      <xsl:when test="@type">
        <xsl:variable name="type" select="key('id', @type)"/>
        <xsl:variable name="module" select="ancestor::packagedElement[@xmi:type = 'uml:Package'][1]"/>
        <xsl:if test="$type/../@xmi:id != $module/@xmi:id">
          <xsl:value-of select="concat($type/../@name, '::')"/>
        </xsl:if>
        <xsl:value-of select="$type/@name"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="translate(substring-after(type/@href, '#'), '_', ' ')"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
